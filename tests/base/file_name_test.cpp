#include "base/file_name.h"

#include <gtest/gtest.h>

namespace chromalog {
namespace {

TEST(FileName, IsWhatFollowsTheLastSlash) {
    EXPECT_EQ(fileNameOf("/a/b/nord.aco"), "nord.aco");
    EXPECT_EQ(fileNameOf("nord.aco"), "nord.aco");
    EXPECT_EQ(fileNameOf("/a/b/"), "");
    EXPECT_EQ(fileNameOf(""), "");
}

} // namespace
} // namespace chromalog
