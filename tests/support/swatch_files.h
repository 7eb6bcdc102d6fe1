#pragma once

#include "formats/book_lookup.h"
#include "record/host_conversion.h"
#include "record/list_store.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace chromalog::test {

/// The first six characters, or fewer and zeros.
inline BookKey keyOf(std::string_view text) {
    BookKey key{};
    std::copy_n(text.begin(), std::min(text.size(), key.size()), key.begin());
    return key;
}

/// Builds swatch files and colour books, field by field, big-endian.
class FileBuilder {
  public:
    std::vector<std::uint8_t> bytes;

    FileBuilder& byte(int v) {
        bytes.push_back(static_cast<std::uint8_t>(v));
        return *this;
    }
    FileBuilder& word(int v) { return byte(v >> 8).byte(v); }
    FileBuilder& longWord(std::uint32_t v) {
        return word(static_cast<int>(v >> 16)).word(static_cast<int>(v & 0xFFFF));
    }
    FileBuilder& text(std::string_view s) {
        for (const char c : s)
            byte(static_cast<std::uint8_t>(c));
        return *this;
    }
    /// A length of UTF-16 units, then the units.
    FileBuilder& units(std::string_view s) {
        longWord(static_cast<std::uint32_t>(s.size()));
        for (const char c : s)
            word(static_cast<std::uint8_t>(c));
        return *this;
    }
    FileBuilder& header(int version, int count) { return byte(0).byte(version).word(count); }
    FileBuilder& colour(int space, int w, int x, int y, int z = 0) {
        return word(space).word(w).word(x).word(y).word(z);
    }
    /// The name of a version 2 record: its length counts the terminating unit.
    FileBuilder& name(std::string_view s) {
        longWord(static_cast<std::uint32_t>(s.size() + 1));
        for (const char c : s)
            word(static_cast<std::uint8_t>(c));
        return word(0);
    }
    /// Space code and key of a colour-book reference.
    FileBuilder& reference(int space, std::string_view key) { return word(space).text(key).word(0); }

    FileBuilder& bookHeader(int count, int space) {
        text("8BCB").word(1).word(3000);
        units("Title").units("prefix").units("").units("about it");
        return word(count).word(9).word(4).word(space);
    }
    FileBuilder& bookColour(std::string_view name, std::string_view key, std::vector<int> components) {
        units(name).text(key);
        for (const int c : components)
            byte(c);
        return *this;
    }
};

/// Colour books in memory; counts how often each is read.
class BooksInMemory : public ColourBookRegistry {
  public:
    std::map<std::string, std::vector<std::uint8_t>> books;
    mutable std::map<std::string, int> reads;
    std::optional<std::vector<std::uint8_t>> readBook(std::string_view file) const override {
        ++reads[std::string(file)];
        const auto found = books.find(std::string(file));
        return found == books.end() ? std::nullopt : std::optional(found->second);
    }
};

/// A host conversion that records what it is asked and answers with the slots moved on by one place.
struct RecordingHost {
    struct Call {
        std::int16_t space;
        std::array<std::int16_t, 4> slots;
        friend bool operator==(const Call&, const Call&) = default;
    };
    static inline std::vector<Call> calls;
    static inline std::int16_t error = 0;

    static void reset(std::int16_t nextError = 0) {
        calls.clear();
        error = nextError;
    }
    static std::int16_t convert(ColorServicesInfo* info) {
        std::int16_t* c = info->colorComponents;
        calls.push_back({info->sourceSpace, {c[0], c[1], c[2], c[3]}});
        if (error != 0 || info->resultSpace != plugIncolorServicesRGBSpace) return error;
        const std::int16_t first = c[0];
        c[0] = c[1], c[1] = c[2], c[2] = c[3], c[3] = first;
        return 0;
    }
};

/// The records of one list, marked so that a change shows, with guards that must not change on either side.
class GuardedList {
  public:
    GuardedList() : block_(new Block) { std::memset(static_cast<void*>(block_.get()), 0x5A, sizeof(Block)); }
    ListRecords records() { return block_->records; }
    FCOStruct& operator[](int i) { return block_->records[i]; }
    bool untouched(int i) const {
        return std::ranges::all_of(bytesOf(block_->records[i]),
                                   [](std::uint8_t byte) { return byte == 0x5A; });
    }
    bool guardsWhole() const {
        const auto marked = [](std::uint8_t byte) { return byte == 0x5A; };
        return std::ranges::all_of(block_->before, marked) && std::ranges::all_of(block_->after, marked);
    }

  private:
    struct Block {
        std::uint8_t before[1024];
        FCOStruct records[kListCapacity];
        std::uint8_t after[1024];
    };
    static std::span<const std::uint8_t> bytesOf(const FCOStruct& record) {
        return {reinterpret_cast<const std::uint8_t*>(&record), sizeof record};
    }
    std::unique_ptr<Block> block_;
};

} // namespace chromalog::test
