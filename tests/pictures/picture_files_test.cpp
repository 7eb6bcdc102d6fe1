// What files tell of their pictures, without decoding them.
#include "pictures/exif_orientation.h"
#include "pictures/jpeg_scans.h"
#include "pictures/picture_kind.h"

#include <gtest/gtest.h>

#include <string>

namespace chromalog::test {
namespace {

using namespace std::string_literals;

std::vector<std::uint8_t> bytes(const std::string& text) {
    return {text.begin(), text.end()};
}

BytesAt file(const std::string& text) {
    return [text](std::uint64_t offset, std::size_t count) {
        return offset < text.size() ? bytes(text.substr(offset, count)) : bytes("");
    };
}

std::string kindOf(const std::string& start) {
    const PictureKind* kind = pictureKindOf(bytes(start));
    return kind ? std::string(kind->name) : "none";
}

TEST(PictureKinds, TheFirstBytesTellTheKind) {
    EXPECT_EQ(kindOf("\x89PNG\r\n\x1A\n"), "PNG");
    EXPECT_EQ(kindOf("\xFF\xD8\xFF\xE0"), "JPEG");
    EXPECT_EQ(kindOf("II*\0more"s), "TIFF");
    EXPECT_EQ(kindOf("MM\0*more"s), "TIFF");
    EXPECT_EQ(kindOf("RIFF1234WEBP"), "WebP");
    EXPECT_EQ(kindOf("RIFF1234WAVE"), "none");
    EXPECT_EQ(kindOf("RIFF"), "none");
    EXPECT_EQ(kindOf(""), "none");
}

const std::string kBigEndian =
    "MM\0*\0\0\0\x08\0\x02\x01\x0F\0\x02\0\0\0\x01\0\0\0\0\x01\x12\0\x03\0\0\0\x01\0\x06\0\0"s;
const std::string kLittleEndian = "II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0\x08\0\0\0"s;

TEST(ExifOrientation, IsReadInBothByteOrders) {
    EXPECT_EQ(exifOrientation(bytes(kBigEndian)), 6);
    EXPECT_EQ(exifOrientation(bytes(kLittleEndian)), 8);
    EXPECT_EQ(exifOrientation(bytes("Exif\0\0"s + kLittleEndian)), 8);
}

TEST(ExifOrientation, AnyOtherBytesAreUpright) {
    EXPECT_EQ(exifOrientation({}), 1);
    for (std::size_t size = 0; size < kLittleEndian.size() - 2; ++size)
        EXPECT_EQ(exifOrientation(bytes(kLittleEndian.substr(0, size))), 1) << size;
    EXPECT_EQ(exifOrientation(bytes("II*\0\xFF\xFF\xFF\xFF"s)), 1);
    EXPECT_EQ(exifOrientation(bytes("II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0\x09\0\0\0"s)), 1);
    EXPECT_EQ(exifOrientation(bytes("II*\0\x08\0\0\0\x01\0\x12\x01\x04\0\x01\0\0\0\x08\0\0\0"s)), 1)
        << "not a short";
}

TEST(ExifOrientation, AChunkIsFoundBehindOthers) {
    const std::string block = "\0\0\0\x16"s + "eXIf" + kLittleEndian + "crc.";
    EXPECT_EQ(orientationOfPng(file("12345678\0\0\0\x03"s + "IHDRabccrc." + block)), 8);
    EXPECT_EQ(orientationOfWebp(file("RIFF....WEBPVP8L\x03\0\0\0abc.EXIF\x16\0\0\0"s + kLittleEndian)), 8)
        << "chunks of odd lengths are padded";
}

TEST(ExifOrientation, ChunksWithoutEndEnd) {
    EXPECT_EQ(orientationOfPng(file("12345678\xFF\xFF\xFF\xFFIDATabc")), 1);
    const BytesAt endless = [](std::uint64_t, std::size_t count) {
        return std::vector<std::uint8_t>(count, 0);
    };
    EXPECT_EQ(orientationOfPng(endless), 1);
    EXPECT_EQ(orientationOfWebp(endless), 1);
}

TEST(JpegScans, AreCountedAlsoAcrossParts) {
    EXPECT_EQ(scansOfJpeg(file("\xFF\xD8\xFF\xDA..\xFF\xDA..")), 2);
    EXPECT_EQ(scansOfJpeg(file(std::string(65'535, '.') + "\xFF\xDA")), 1);
    EXPECT_EQ(scansOfJpeg(file("")), 0);
}

} // namespace
} // namespace chromalog::test
