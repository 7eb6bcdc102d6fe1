// What the loader and the processor are asked to guard in a release: the host runs foreign files through us;
// and whose work a release uses.
#include "plugin_check/elf_file.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>

namespace chromalog {
namespace {

using testing::AnyOf;
using testing::Contains;
using testing::Each;
using testing::MatchesRegex;
using testing::StartsWith;

struct Built {
    const char* path;
    const char* entry;     ///< our own: what stands before a program's main is the C library's
    const char* inNotices; ///< how the line of the notices on it begins
};

void PrintTo(const Built& built, std::ostream* out) {
    *out << built.path;
}

class Hardening : public testing::TestWithParam<Built> {
  protected:
    void SetUp() override {
        if (!CHROMALOG_IS_HARDENED)
            GTEST_SKIP() << "neither a debug build nor one with sanitizers is hardened";
    }
    const ElfFile file{GetParam().path};
};

TEST_P(Hardening, WhatTheLoaderFillsInIsReadOnlyBeforeAnythingRuns) {
    EXPECT_TRUE(file.bindsNow());
    EXPECT_TRUE(file.hasReadOnlyRelocations());
    EXPECT_FALSE(file.relocatesCode());
}

TEST_P(Hardening, TheStackHoldsNoCodeAndIsWatched) {
    EXPECT_FALSE(file.hasExecutableStack());
    EXPECT_THAT(file.importedSymbols(), Contains("__stack_chk_fail"));
}

TEST_P(Hardening, CallsThatFillBuffersAreTheCheckedOnes) {
    EXPECT_THAT(file.importedSymbols(), Contains(MatchesRegex("__[a-z]+_chk")));
}

TEST_P(Hardening, LibrariesAreLookedForInTheSystemAndTheBuildAlone) {
    EXPECT_THAT(file.searchPaths(), Each(AnyOf(StartsWith("$ORIGIN"), StartsWith(CHROMALOG_BUILD_FOLDER))));
}

TEST_P(Hardening, OfItsOwnItShowsItsEntriesAtMost) {
    const bool isProgram = GetParam().entry == std::string("main"); // which shows what its libraries ask for
    for (const std::string& symbol : file.exportedSymbols())
        EXPECT_TRUE(isProgram ? symbol.find("9chromalog") == symbol.npos
                              : symbol == GetParam().entry || symbol == "chromalogReadForm")
            << symbol;
}

TEST_P(Hardening, JumpsLandOnlyWhereFunctionsBegin) {
#if defined(__x86_64__)
    EXPECT_EQ(file.codeOf(GetParam().entry, 4), "\xF3\x0F\x1E\xFA") << "endbr64 at " << GetParam().entry;
#else
    GTEST_SKIP() << "another instruction marks them here";
#endif
}

/// A library, or headers that are compiled in: their own functions are of a namespace.
struct Foreign {
    const char* name;
    const char* library;
    const char* symbols;
};

/// What the notices say that this file uses.
std::string acknowledgedIn(const char* title) {
    std::ifstream notices(CHROMALOG_NOTICES);
    for (std::string line; std::getline(notices, line);)
        if (line.starts_with(title)) return line.substr(std::string(title).size());
    return {};
}

TEST_P(Hardening, TheNoticesNameWhatIsUsedAndNothingElse) {
    const std::string said = acknowledgedIn(GetParam().inNotices);
    ASSERT_FALSE(said.empty());
    const auto needed = file.neededLibraries(), own = file.ownSymbols();
    for (const Foreign& each :
         {Foreign{"Qt", "libQt6", nullptr}, Foreign{"Little CMS", "liblcms2", nullptr},
          Foreign{"Expat", "libexpat", nullptr}, Foreign{"JSON for Modern C++", nullptr, "8nlohmann"},
          Foreign{"CLI11", nullptr, "N3CLI"}}) {
        const bool isUsed =
            each.library
                ? std::ranges::any_of(needed, [&](auto& one) { return one.starts_with(each.library); })
                : std::ranges::any_of(own, [&](auto& one) { return one.find(each.symbols) != one.npos; });
        EXPECT_EQ(said.find(each.name) != said.npos, isUsed) << each.name;
    }
}

std::string nameOf(const testing::TestParamInfo<Built>& built) {
    static const char* const names[] = {"Module", "Program", "Player"};
    return names[built.index];
}

const auto kBuilt =
    testing::Values(Built{CHROMALOG_MODULE, "PluginMain", "Plug-in:"},
                    Built{CHROMALOG_PROGRAM, "main", "Program \"chromalog\":"},
                    Built{CHROMALOG_DRIVE_MODULE, "chromalogDrive", "Module that plays scripts:"});
INSTANTIATE_TEST_SUITE_P(Built, Hardening, kBuilt, nameOf);

} // namespace
} // namespace chromalog
