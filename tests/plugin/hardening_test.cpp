// What the loader and the processor are asked to guard in a release: the host runs foreign files through us.
#include "plugin/elf_file.h"

#include <gmock/gmock.h>

namespace chromalog {
namespace {

using testing::AnyOf;
using testing::Contains;
using testing::Each;
using testing::MatchesRegex;
using testing::StartsWith;

struct Built {
    const char* path;
    const char* entry; ///< our own: what stands before a program's main is the C library's
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

TEST_P(Hardening, JumpsLandOnlyWhereFunctionsBegin) {
#if defined(__x86_64__)
    EXPECT_EQ(file.codeOf(GetParam().entry, 4), "\xF3\x0F\x1E\xFA") << "endbr64 at " << GetParam().entry;
#else
    GTEST_SKIP() << "another instruction marks them here";
#endif
}

std::string nameOf(const testing::TestParamInfo<Built>& built) {
    static const char* const names[] = {"Module", "Program", "Player"};
    return names[built.index];
}

INSTANTIATE_TEST_SUITE_P(Built, Hardening,
                         testing::Values(Built{CHROMALOG_MODULE, "PluginMain"},
                                         Built{CHROMALOG_PROGRAM, "main"},
                                         Built{CHROMALOG_DRIVE_MODULE, "chromalogDrive"}),
                         nameOf);

} // namespace
} // namespace chromalog
