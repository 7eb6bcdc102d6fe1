#pragma once

#include "prefs/kept_copies.h"
#include "prefs/preferences_layout.h"
#include "prefs/preferences_store.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

namespace chromalog::test {

using Bytes = std::vector<std::uint8_t>;

/// A preferences file whose lists are told by one byte: how many colours list 1 has, and their first byte.
inline Bytes listsOf(std::uint8_t colours) {
    Bytes file(kPreferencesSize);
    file[kFileLists[0]] = file[kFileCounts[0]] = colours;
    return file;
}

/// All of the lists as a pick reads them.
inline std::optional<Bytes> readBy(PreferencesStore& pick) {
    Bytes lists(kPreferencesSize);
    const auto length = pick.read(lists);
    if (!length) return std::nullopt;
    lists.resize(*length);
    return lists;
}

/// A folder with a preferences file, and what a pick does to it.
class StoreTest : public testing::Test {
  protected:
    void SetUp() override { ::setenv("TZ", "UTC", 1), ::tzset(); }

    /// Of a dated copy.
    static std::string nameOf(std::time_t hoursAgo) {
        return datedCopyName(std::time(nullptr) - hoursAgo * 3600);
    }
    void makeCopy(const std::string& name, const Bytes& lists) {
        ASSERT_TRUE(writeDataToFileAtURL(path + "." + name, lists, 0, Flush::later));
    }
    static bool writtenBy(PreferencesStore& pick, const Bytes& lists, Flush flush = Flush::later) {
        return pick.write(lists, 0, flush).error == 0;
    }
    /// As another program does that knows nothing of ours: a new file in the place of the old.
    void writeForeign(const Bytes& lists) {
        ASSERT_TRUE(writeDataToFileAtURL(path + "-foreign", lists, 0, Flush::later));
        std::filesystem::rename(path + "-foreign", path);
    }
    Bytes file(const std::string& suffix = "") { return at(path + suffix); }
    static Bytes at(const std::string& name) { return readDataFromFileAtURL(name).value_or(Bytes{}); }
    std::vector<std::string> copies() {
        std::vector<std::string> names;
        for (const KeptCopy& copy : keptCopies(path))
            names.push_back(copy.name);
        std::ranges::sort(names);
        return names;
    }
    /// The dated copies' contents.
    std::vector<Bytes> dated() {
        std::vector<Bytes> contents;
        for (const std::string& name : copies())
            if (name.starts_with("kept-")) contents.push_back(file("." + name));
        return contents;
    }
    bool isAnywhere(const Bytes& lists) {
        for (const std::string& name : copies())
            if (file("." + name) == lists) return true;
        return file() == lists;
    }

    TemporaryFolder folder;
    std::string path = folder / "lists.prf";
};

} // namespace chromalog::test
