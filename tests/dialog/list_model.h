#pragma once

#include "record/list_store.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace chromalog::test {

using Swatches = std::vector<FCOStruct>; ///< always kListCapacity of them

/// What a step of undo brings back.
struct ModelRecord {
    std::array<Swatches, 2> lists{Swatches(kListCapacity), Swatches(kListCapacity)};
    std::array<int, 2> stored{};
    std::array<std::string, 2> storedNames;
};

/// The two lists as the plainest program would keep them: vectors, loops and whole copies. It shares nothing
/// with the real one but the layout of a record.
class ListModel {
  public:
    /// Swatches that can be there: an append past the capacity leaves a count above it.
    int there(int list) const { return std::min(shown[list], kListCapacity); }

    ModelRecord now;
    std::array<int, 2> shown{}, selected{};
    std::array<std::vector<int>, 2> hits;
    std::array<int, 2> stepper{};
    std::deque<ModelRecord> undo, redo; ///< the latest at the back
    int undoCount = 0, maxUndo = 0, alerts = 0;

    void recordStep() {
        storeCounts();
        undo.push_back(now);
        if (undo.size() > 20) undo.pop_front();
        redo.clear();
        maxUndo = ++undoCount;
    }

    void undoStep() {
        if (undoCount <= 0 || undo.empty()) return;
        storeCounts();
        swap(undo, redo);
        --undoCount;
    }

    void redoStep() {
        storeCounts();
        if (!redo.empty()) swap(redo, undo);
        if (redo.empty()) showStored();
        ++undoCount;
    }

    /// A swatch file: the colours, read from `start` on, under the file's name.
    void load(int list, int start, const Swatches& file, const std::string& name) {
        int count = static_cast<int>(file.size());
        if (count + start >= kListCapacity) {
            ++alerts;
            count = count + start - kListCapacity;
        }
        for (int i = 0; i < count && start + i < kListCapacity; ++i) {
            FCOStruct& to = now.lists[list][start + i];
            // The reader copies one byte past the characters: the low byte of the terminating unit.
            std::memcpy(to.Namen, file[i].Namen, std::min(2 + file[i].Namen[0], 256));
            to.SRed = file[i].SRed, to.SGreen = file[i].SGreen, to.SBlue = file[i].SBlue;
        }
        shown[list] = now.stored[list] = start + count;
        now.storedNames[list] = name;
        selected[list] = 0;
    }

    void erase(int list) {
        Swatches& all = now.lists[list];
        if (selected[list] >= shown[list]) return;
        recordStep();
        for (int i = selected[list]; i < shown[list] && i + 1 < kListCapacity; ++i)
            all[i] = all[i + 1];
        --shown[list];
    }

    void moveWithin(int list, int to) {
        Swatches& all = now.lists[list];
        if (selected[list] >= kListCapacity) return;
        const FCOStruct taken = all[selected[list]];
        all.erase(all.begin() + selected[list]);
        all.insert(all.begin() + std::min(to, kListCapacity - 1), taken);
    }

    /// The nearest swatch and its distance, as a loop in single precision.
    static float distanceTo(const FCOStruct& s, const std::array<double, 3>& rgb) {
        const float x = static_cast<float>(rgb[0] * 65535.0) - static_cast<float>(s.SRed);
        const float y = static_cast<float>(rgb[1] * 65535.0) - static_cast<float>(s.SGreen);
        const float z = static_cast<float>(rgb[2] * 65535.0) - static_cast<float>(s.SBlue);
        return x * x + y * y + z * z;
    }

    /// A dropped colour; `lengthByte` is set where it is not the name's own length.
    void drop(int list, int row, const std::array<double, 3>& rgb, const std::string& name,
              std::optional<int> lengthByte) {
        Swatches& all = now.lists[list];
        float best = 1e13F;
        for (int i = 0; i < there(list); ++i)
            best = std::min(best, distanceTo(all[i], rgb));
        if (std::sqrt(best) <= 10.0F || shown[list] >= kListCapacity) {
            ++alerts;
            return;
        }
        const int place = std::min(row, shown[list]);
        for (int i = shown[list]; i > place; --i)
            all[i] = all[i - 1];
        ++shown[list];
        FCOStruct& s = all[place];
        s.SRed = static_cast<int>(rgb[0] * 65535.0);
        s.SGreen = static_cast<int>(rgb[1] * 65535.0);
        s.SBlue = static_cast<int>(rgb[2] * 65535.0);
        rename(s, name);
        if (lengthByte) s.Namen[0] = static_cast<std::uint8_t>(*lengthByte);
    }

    void overwrite(const std::array<double, 3>& rgb, const std::string& name) {
        if (selected[0] >= kListCapacity) return;
        FCOStruct& s = now.lists[0][selected[0]];
        const auto cut = [](double c) { return static_cast<std::int16_t>(static_cast<int>(c * 65535.0)); };
        s.SRed = cut(rgb[0]), s.SGreen = cut(rgb[1]), s.SBlue = cut(rgb[2]);
        rename(s, name);
    }

    template <typename Less> void sort(int list, Less less) {
        std::stable_sort(now.lists[list].begin(), now.lists[list].begin() + there(list), less);
    }

    void endNames(int list, int count) {
        for (int i = 0; i < count; ++i)
            terminate(now.lists[list][i]);
    }

    void search(int list, const std::string& text) {
        endNames(0, there(list));
        hits[list].clear();
        for (int i = 0; i < there(list); ++i) {
            const std::string name = text_(now.lists[list][i]);
            const bool ascii = std::all_of(name.begin(), name.end(), [](char c) { return c >= 0; });
            if (ascii && !text.empty() && name.find(text) != name.npos) hits[list].push_back(i);
        }
        if (hits[list].size() > 1) stepper[list] = 0;
        if (!hits[list].empty()) jump(list);
    }

    void nextHit(int list) {
        if (hits[list].empty()) return;
        if (hits[list].size() > 1) stepper[list] = (stepper[list] + 1) % static_cast<int>(hits[list].size());
        jump(list);
    }

    /// Zero-terminated, never past the name field.
    static std::string text_(const FCOStruct& s) {
        std::string text;
        for (int i = 1; i < 256 && s.Namen[i] != 0; ++i)
            text.push_back(static_cast<char>(s.Namen[i]));
        return text;
    }

  private:
    void storeCounts() { now.stored = shown; }
    void showStored() { shown = now.stored; }
    void swap(std::deque<ModelRecord>& from, std::deque<ModelRecord>& to) {
        to.push_back(std::move(now));
        if (to.size() > 20) to.pop_front();
        now = std::move(from.back());
        from.pop_back();
        showStored();
    }
    void jump(int list) {
        if (stepper[list] < static_cast<int>(hits[list].size())) selected[list] = hits[list][stepper[list]];
    }
    static void terminate(FCOStruct& s) {
        if (s.Namen[0] < 255)
            s.Namen[1 + s.Namen[0]] = 0;
        else
            s.SRed &= ~std::int64_t{0xFF};
    }
    static void rename(FCOStruct& s, const std::string& name) {
        for (std::size_t i = 0; i < std::min<std::size_t>(name.size(), 255); ++i)
            s.Namen[1 + i] = static_cast<std::uint8_t>(name[i]);
        s.Namen[0] = static_cast<std::uint8_t>(name.size());
    }
};

} // namespace chromalog::test
