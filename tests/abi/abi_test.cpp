#include "abi/abi_layout.h"

#include "record/global_record.h"

#include <gtest/gtest.h>
#include <vector>

extern "C" size_t abiLayoutInC(size_t* values, size_t room);

namespace {

std::vector<size_t> layoutInC() {
    std::vector<size_t> values(abiLayoutInC(nullptr, 0));
    abiLayoutInC(values.data(), values.size());
    return values;
}

TEST(Abi, RecordsHaveTheSameLayoutInC11AndInCpp20) {
    std::vector<size_t> values(abiLayout(nullptr, 0));
    abiLayout(values.data(), values.size());
    EXPECT_EQ(values, layoutInC());
}

TEST(Abi, RecordsHaveThePublishedOffsetsAndSizes) {
    const std::vector<size_t> published{0,   8,   16,  24,  32,  40,  48,  56,  64,  72,  80,  88, 96,
                                        104, 112, 120, 128, 168, 176, 184, 208, 216, 224, 480, 24, 272,
                                        56,  72,  24,  72,  32,  56,  56,  88,  40,  48,  56};
    EXPECT_EQ(layoutInC(), published);
}

TEST(Abi, CallsAreAskedForByTheirPublishedNumbers) {
    EXPECT_EQ(pickerSelectorAbout, 0);
    EXPECT_EQ(pickerSelectorPick, 1);
}

TEST(Abi, FourCharacterCodesReadAsText) {
    EXPECT_EQ(kHostSignature, ('8' << 24) | ('B' << 16) | ('I' << 8) | 'M');
    EXPECT_EQ(propHostVersion, ('v' << 24) | ('e' << 16) | ('r' << 8) | 's');
    EXPECT_EQ(kSPSuiteNotFoundError, ('S' << 24) | ('!' << 16) | ('F' << 8) | 'd');
    EXPECT_EQ(kSPBadParameterError, ('P' << 24) | ('a' << 16) | ('r' << 8) | 'm');
}

TEST(Abi, ASwatchRecordHas304Bytes) {
    EXPECT_EQ(sizeof(chromalog::FCOStruct), 304u);
}

} // namespace
