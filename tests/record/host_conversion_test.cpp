#include "record/host_conversion.h"

#include <gtest/gtest.h>

#include <array>

namespace chromalog {
namespace {

using Components = std::array<std::int16_t, 4>;

std::int16_t failing(ColorServicesInfo* info) {
    info->colorComponents[0] = 99;
    return -50;
}

ColorServicesInfo seen;
std::int16_t echo(ColorServicesInfo* info) {
    seen = *info;
    return 0;
}

TEST(HostConversion, ANullCallbackLeavesTheComponents) {
    Components c{1, 2, 3, 4};
    EXPECT_FALSE(HostColorServicesAvailable(nullptr));
    EXPECT_EQ(HostCSConvertColor(nullptr, 0, 2, c.data()), -30900);
    EXPECT_EQ(c, (Components{1, 2, 3, 4}));
    EXPECT_EQ(HostCSConvertColor(nullptr, 0, 2, nullptr), -30900);
}

TEST(HostConversion, ANullPointerIsABadParameter) {
    EXPECT_EQ(HostCSConvertColor(echo, 0, 2, nullptr), -1715);
    EXPECT_EQ(CSInitInfo(nullptr), -1715);
    EXPECT_EQ(CSSetColor(nullptr, 1, 2, 3, 4), -1715);
    Components c{};
    EXPECT_EQ(CSCopyColor(c.data(), nullptr), -1715);
    EXPECT_EQ(CSCopyColor(nullptr, c.data()), -1715);
}

TEST(HostConversion, AHostErrorIsReturnedAndTheComponentsStay) {
    Components c{1, 2, 3, 4};
    EXPECT_EQ(HostCSConvertColor(failing, 0, 2, c.data()), -50);
    EXPECT_EQ(c, (Components{1, 2, 3, 4}));
}

TEST(HostConversion, TheGamutIsToldWhereTheHostHasSetIt) {
    const auto silent = [](ColorServicesInfo* info) -> std::int16_t { return info->resultInGamut = 1, 0; };
    const auto telling = [](ColorServicesInfo* info) -> std::int16_t {
        info->resultGamutInfoValid = 1;
        return 0;
    };
    Components c{1, 2, 3, 4};
    std::optional<bool> inGamut = true;
    EXPECT_EQ(HostCSConvertColor(silent, 0, 2, c.data(), inGamut), 0);
    EXPECT_EQ(inGamut, std::nullopt);
    EXPECT_EQ(HostCSConvertColor(telling, 0, 2, c.data(), inGamut), 0);
    EXPECT_EQ(inGamut, false);
}

TEST(HostConversion, TheArgumentBlockIsComplete) {
    Components c{10, 20, 30, 40};
    EXPECT_EQ(HostCSConvertColor(echo, 0, 0, c.data()), 0);
    EXPECT_EQ(c, (Components{10, 20, 30, 40})) << "RGB to RGB through an identity";
    EXPECT_EQ(seen.infoSize, 56);
    EXPECT_EQ(seen.selector, 1);
    EXPECT_EQ(seen.reservedSourceSpaceInfo, nullptr);
    EXPECT_EQ(seen.reservedResultSpaceInfo, nullptr);
    EXPECT_EQ(seen.reserved, nullptr);
    ColorServicesInfo fresh;
    EXPECT_EQ(CSInitInfo(&fresh), 0);
    EXPECT_EQ(fresh.sourceSpace, 0);
    EXPECT_EQ(fresh.resultSpace, -1);
}

TEST(HostConversion, BlackInkComesBackInTheFourthComponent) {
    const auto toInk = [](ColorServicesInfo* info) -> std::int16_t {
        EXPECT_EQ(info->colorComponents[3], 0);
        info->colorComponents[3] = 77;
        return 0;
    };
    Components c{};
    CSSetColor(c.data(), 1, 2, 3, 0);
    EXPECT_EQ(HostCSConvertColor(toInk, 0, 2, c.data()), 0);
    EXPECT_EQ(c[3], 77);
}

} // namespace
} // namespace chromalog
