#include "record/host_version.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace chromalog {
namespace {

std::int16_t answer = 0;

/// Tells a version, also where it then reports an error.
std::int16_t versionOf16(std::uint32_t signature, std::uint32_t key, std::int32_t index,
                         std::intptr_t* simple, Handle*) {
    EXPECT_EQ(signature, kHostSignature);
    EXPECT_EQ(key, propHostVersion);
    EXPECT_EQ(index, 0);
    *simple = 16 * 65536;
    return answer;
}

class HostVersion : public testing::Test {
  protected:
    void SetUp() override {
        answer = 0;
        procs.numPropertyProcs = 2;
        procs.getPropertyProc = versionOf16;
    }
    PropertyProcs procs{};
};

TEST_F(HostVersion, IsAskedOfTheHost) {
    EXPECT_EQ(hostVersion(&procs), 16 * 65536);
}

TEST_F(HostVersion, OfACallThatFailedNothingIsTaken) {
    for (const std::int16_t error : {-30900, -108, 1}) {
        answer = error;
        EXPECT_EQ(hostVersion(&procs), 0) << error;
    }
}

TEST_F(HostVersion, IsNoneWhereTheHostTellsNoProperties) {
    EXPECT_EQ(hostVersion(nullptr), 0);
    procs.numPropertyProcs = 0;
    EXPECT_EQ(hostVersion(&procs), 0);
    procs.numPropertyProcs = 2;
    procs.getPropertyProc = nullptr;
    EXPECT_EQ(hostVersion(&procs), 0);
}

} // namespace
} // namespace chromalog
