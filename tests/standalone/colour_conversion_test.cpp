#include "standalone/colour_services.h"
#include "standalone/conversion/closed_converter.h"
#include "standalone/conversion/lcms_converter.h"

#include "abi/result_codes.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <fstream>

namespace chromalog::standalone {
namespace {

using ::testing::ElementsAre;

void expectNear(const Components& got, const Components& wanted, int tolerance, const std::string& what) {
    for (int i = 0; i < 4; ++i)
        EXPECT_NEAR(got[i], wanted[i], tolerance) << what << ", slot " << i;
}

struct Pair {
    Space from;
    Components in;
    Space to;
    Components out;
};

// Each row holds for both converters, within the tolerance of the test.
const Pair kCommon[]{
    {Space::rgb, {255, 0, 0, 0}, Space::hsb, {0, 255, 255, 0}},
    {Space::rgb, {0, 255, 0, 0}, Space::hsb, {120, 255, 255, 0}},
    {Space::rgb, {0, 0, 255, 0}, Space::hsb, {240, 255, 255, 0}},
    {Space::rgb, {77, 77, 77, 0}, Space::hsb, {0, 0, 77, 0}},
    {Space::hsb, {300, 255, 255, 0}, Space::rgb, {255, 0, 255, 0}},
    {Space::hsb, {359, 255, 255, 0}, Space::rgb, {255, 0, 4, 0}},
    {Space::hsb, {123, 0, 200, 0}, Space::rgb, {200, 200, 200, 0}},
    {Space::rgb, {255, 128, 0, 0}, Space::hsl, {30, 255, 128, 0}},
    {Space::hsl, {120, 255, 64, 0}, Space::rgb, {0, 128, 0, 0}},
    {Space::gray, {0, 0, 0, 0}, Space::rgb, {0, 0, 0, 0}},
    {Space::gray, {128, 9, 9, 9}, Space::rgb, {128, 128, 128, 0}},
    {Space::gray, {255, 0, 0, 0}, Space::rgb, {255, 255, 255, 0}},
    {Space::rgb, {128, 128, 128, 0}, Space::gray, {128, 0, 0, 0}},
    {Space::lab, {255, 128, 128, 0}, Space::rgb, {255, 255, 255, 0}},
    {Space::lab, {0, 128, 128, 0}, Space::rgb, {0, 0, 0, 0}},
    {Space::rgb, {255, 0, 0, 0}, Space::lab, {138, 209, 198, 0}},
    {Space::rgb, {0, 0, 255, 0}, Space::lab, {75, 196, 16, 0}},
    {Space::xyz, {246, 255, 210, 0}, Space::rgb, {255, 255, 255, 0}},
    {Space::rgb, {255, 255, 255, 0}, Space::cmyk, {255, 255, 255, 255}},
    {Space::cmyk, {255, 255, 255, 255}, Space::rgb, {255, 255, 255, 0}},
};

TEST(ColourConversion, KnownColoursByArithmetic) {
    for (const Pair& p : kCommon)
        expectNear(ClosedConverter().convert(p.from, p.to, p.in), p.out, 1, ::testing::PrintToString(p.in));
}

TEST(ColourConversion, KnownColoursByColourManagement) {
    const LcmsConverter withProfile(LcmsConverter::installedCmykProfile()), without("");
    for (const Pair& p : kCommon) {
        expectNear(withProfile.convert(p.from, p.to, p.in), p.out, 1, ::testing::PrintToString(p.in));
        expectNear(without.convert(p.from, p.to, p.in), p.out, 1, ::testing::PrintToString(p.in));
    }
}

TEST(ColourConversion, CmykByTheInstalledProfile) {
    const std::string profile = LcmsConverter::installedCmykProfile();
    if (profile.empty()) GTEST_SKIP() << "libgs-common is not installed";
    const LcmsConverter converter(profile);
    const std::array<Components, 3> rows[]{{{{255, 255, 255, 0}, {255, 255, 255, 255}, {255, 255, 255, 0}}},
                                           {{{0, 0, 0, 0}, {71, 82, 84, 29}, {7, 4, 4, 0}}},
                                           {{{255, 0, 0, 0}, {255, 0, 0, 255}, {237, 28, 36, 0}}},
                                           {{{128, 128, 128, 0}, {125, 144, 144, 235}, {129, 128, 128, 0}}},
                                           {{{229, 76, 25, 0}, {244, 38, 0, 254}, {229, 77, 37, 0}}},
                                           {{{25, 178, 76, 0}, {55, 255, 0, 255}, {33, 178, 75, 0}}}};
    for (const auto& [rgb, cmyk, back] : rows) {
        expectNear(converter.convert(Space::rgb, Space::cmyk, rgb), cmyk, 1, "to CMYK");
        expectNear(converter.convert(Space::cmyk, Space::rgb, cmyk), back, 1, "back");
    }
}

TEST(ColourConversion, TheClosedFormOfCmykIsExactThereAndBackForEveryColour) {
    const ClosedConverter converter;
    int wrong = 0;
    for (int rgb = 0; rgb < 1 << 24; ++rgb) {
        const Components in{static_cast<std::int16_t>(rgb >> 16), static_cast<std::int16_t>(rgb >> 8 & 255),
                            static_cast<std::int16_t>(rgb & 255), 0};
        wrong +=
            converter.convert(Space::cmyk, Space::rgb, converter.convert(Space::rgb, Space::cmyk, in)) != in;
    }
    EXPECT_EQ(wrong, 0);
    EXPECT_THAT(converter.convert(Space::rgb, Space::cmyk, {0, 0, 0, 0}), ElementsAre(255, 255, 255, 0));
    EXPECT_THAT(converter.convert(Space::rgb, Space::cmyk, {229, 76, 25, 0}), ElementsAre(255, 85, 28, 229));
}

TEST(ColourConversion, WithoutAProfileCmykGoesByTheClosedForm) {
    const LcmsConverter lcms("");
    const Components orange{229, 76, 25, 0};
    EXPECT_EQ(lcms.convert(Space::rgb, Space::cmyk, orange),
              ClosedConverter().convert(Space::rgb, Space::cmyk, orange));
}

TEST(ColourConversion, EqualSpacesChangeNothingNotEvenOutOfRange) {
    const Components odd{-179, 3000, 256, -1};
    for (const Space space :
         {Space::rgb, Space::hsb, Space::cmyk, Space::lab, Space::gray, Space::hsl, Space::xyz}) {
        EXPECT_EQ(ClosedConverter().convert(space, space, odd), odd);
        EXPECT_EQ(LcmsConverter("").convert(space, space, odd), odd);
    }
}

TEST(ColourConversion, SlotsOutOfRangeAreTakenAsTheNearestValueInside) {
    const LcmsConverter lcms(LcmsConverter::installedCmykProfile());
    for (const Space from :
         {Space::rgb, Space::hsb, Space::cmyk, Space::lab, Space::gray, Space::hsl, Space::xyz})
        for (const Space to : {Space::rgb, Space::cmyk, Space::lab}) {
            if (from == to) continue;
            const Components wild{32767, -32768, 400, -1}, tame = clamped(from, wild);
            EXPECT_EQ(lcms.convert(from, to, wild), lcms.convert(from, to, tame));
            EXPECT_EQ(ClosedConverter().convert(from, to, wild), ClosedConverter().convert(from, to, tame));
            for (const std::int16_t slot : lcms.convert(from, to, wild))
                EXPECT_TRUE(slot >= 0 && slot <= 255);
        }
}

TEST(ColourConversion, AFileThatIsNoCmykProfileIsRefused) {
    EXPECT_THROW(LcmsConverter{__FILE__}, std::runtime_error);
    EXPECT_THROW(LcmsConverter{"/nowhere.icc"}, std::runtime_error);
}

TEST(ColourConversion, AProfileThatServesOneWayAloneIsRefusedBeforeAPick) {
    std::ifstream installed(LcmsConverter::installedCmykProfile(), std::ios::binary);
    if (!installed) GTEST_SKIP() << "libgs-common is not installed";
    const std::string whole(std::istreambuf_iterator<char>(installed), {});
    const test::TemporaryFolder folder;
    for (const std::string way : {"A2B", "B2A"}) {
        std::string half = whole;
        for (auto at = half.find(way); at < 400; at = half.find(way, at)) // the table of tags
            half.replace(at, 3, "Xxx");
        std::ofstream(folder / way, std::ios::binary) << half;
        EXPECT_THROW(LcmsConverter{folder / way}, std::runtime_error) << way;
    }
}

/// The table is there and is none.
TEST(ColourConversion, AProfileWithABrokenTableIsRefusedBeforeAPick) {
    std::ifstream installed(LcmsConverter::installedCmykProfile(), std::ios::binary);
    if (!installed) GTEST_SKIP() << "libgs-common is not installed";
    const std::string whole(std::istreambuf_iterator<char>(installed), {});
    const test::TemporaryFolder folder;
    const auto numberAt = [&whole](std::size_t at) {
        std::size_t number = 0;
        for (std::size_t i = at; i < at + 4; ++i)
            number = number << 8 | static_cast<std::uint8_t>(whole[i]);
        return number;
    };
    for (const std::string way : {"A2B", "B2A"}) {
        std::string broken = whole;
        for (std::size_t tag = 132, end = 132 + numberAt(128) * 12; tag < end; tag += 12)
            if (whole.compare(tag, 3, way) == 0) broken.replace(numberAt(tag + 4), 4, "none");
        ASSERT_NE(broken, whole);
        std::ofstream(folder / way, std::ios::binary) << broken;
        EXPECT_THROW(LcmsConverter{folder / way}, std::runtime_error) << way;
    }
}

TEST(ColourConversion, AProfileServesOnWhereItsFileHasGone) {
    const std::filesystem::path installed = LcmsConverter::installedCmykProfile();
    if (installed.empty()) GTEST_SKIP() << "libgs-common is not installed";
    const test::TemporaryFolder folder;
    std::filesystem::copy_file(installed, folder / "inks.icc");
    const LcmsConverter whole(installed), gone(folder / "inks.icc");
    std::filesystem::remove(folder / "inks.icc");
    const Components inks{200, 40, 90, 250}, lab{150, 170, 90};
    EXPECT_EQ(gone.convert(Space::cmyk, Space::rgb, inks), whole.convert(Space::cmyk, Space::rgb, inks));
    EXPECT_EQ(gone.convert(Space::rgb, Space::cmyk, lab), whole.convert(Space::rgb, Space::cmyk, lab));
    EXPECT_EQ(gone.convert(Space::cmyk, Space::lab, inks), whole.convert(Space::cmyk, Space::lab, inks));
    EXPECT_EQ(gone.convert(Space::lab, Space::cmyk, lab), whole.convert(Space::lab, Space::cmyk, lab));
}

/// As on a disk that fails: what was not read before cannot be read any more.
TEST(ColourConversion, WhereAProfileCannotBeReadAnyMoreRgbIsTheWay) {
    const std::filesystem::path installed = LcmsConverter::installedCmykProfile();
    if (installed.empty()) GTEST_SKIP() << "libgs-common is not installed";
    const test::TemporaryFolder folder;
    std::filesystem::copy_file(installed, folder / "inks.icc");
    const LcmsConverter whole(installed), cut(folder / "inks.icc");
    std::filesystem::resize_file(folder / "inks.icc", 200);
    const Components inks{200, 40, 90, 250}, lab{150, 170, 90};
    const auto rgbOf = [&cut](Space space, const Components& c) { return cut.convert(space, Space::rgb, c); };
    EXPECT_EQ(cut.convert(Space::rgb, Space::cmyk, lab), whole.convert(Space::rgb, Space::cmyk, lab));
    EXPECT_EQ(cut.convert(Space::lab, Space::cmyk, lab),
              whole.convert(Space::rgb, Space::cmyk, rgbOf(Space::lab, lab)));
    EXPECT_EQ(cut.convert(Space::cmyk, Space::lab, inks),
              whole.convert(Space::rgb, Space::lab, rgbOf(Space::cmyk, inks)));
}

struct Services : ::testing::Test {
    Services() {
        ledger.beginCall();
        info.infoSize = sizeof info;
        info.selector = plugIncolorServicesConvertColor;
        info.resultSpace = plugIncolorServicesCMYKSpace;
        for (int i = 0; i < 4; ++i)
            info.colorComponents[i] = static_cast<std::int16_t>(10 * i);
    }
    CallLedger ledger;
    ColourServices services{ledger, std::make_unique<ClosedConverter>()};
    ColorServicesInfo info{};
};

TEST_F(Services, ConvertInPlace) {
    info.resultGamutInfoValid = 1; // what the block held before is no answer
    EXPECT_EQ(services.call(&info), 0);
    EXPECT_THAT(info.colorComponents, ElementsAre(0, 128, 255, 20));
    EXPECT_EQ(info.resultGamutInfoValid, 0);
    EXPECT_EQ(ledger.calls("colorServices"), 1);
}

TEST_F(Services, SpacesOutOfRangeAreAnErrorAndLeaveTheComponentsAlone) {
    for (const std::int16_t space : {-2, -1, 7, 10, 3000}) {
        info.sourceSpace = space;
        EXPECT_EQ(services.call(&info), hostParamErr);
        info.sourceSpace = 0;
        info.resultSpace = space;
        EXPECT_EQ(services.call(&info), hostParamErr);
    }
    EXPECT_THAT(info.colorComponents, ElementsAre(0, 10, 20, 30));
    EXPECT_TRUE(ledger.misuses().empty());
}

TEST_F(Services, FailAndLeaveTheComponentsAloneWhereAsked) {
    services.failAlways();
    EXPECT_EQ(services.call(&info), hostParamErr);
    EXPECT_THAT(info.colorComponents, ElementsAre(0, 10, 20, 30));
}

} // namespace
} // namespace chromalog::standalone
