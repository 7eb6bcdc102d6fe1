// Picture files by their contents: what is honoured, what is refused, and what hostile ones do.
#include "qt/pictures/picture_reader.h"

#include "qt/desktop_fixture.h"
#include "support/png_file.h"

#include <QBuffer>
#include <QColorSpace>
#include <QImageReader>
#include <QImageWriter>
#include <QLoggingCategory>

#include <array>
#include <random>

#include <sys/stat.h>

namespace chromalog::test {
namespace {

using testing::Each;
using testing::HasSubstr;
using testing::StartsWith;

const char* const kFormats[] = {"png", "jpeg", "tiff", "webp"};

QByteArray encoded(const QImage& image, const char* format,
                   QImageIOHandler::Transformations turned = QImageIOHandler::TransformationNone) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    QImageWriter writer(&buffer, format);
    writer.setQuality(100);
    writer.setTransformation(turned);
    EXPECT_TRUE(writer.write(image)) << format << writer.errorString().toStdString();
    return bytes;
}

ReadPicture read(const QByteArray& bytes) {
    return readPictureBytes("a", bytes, {});
}

std::string hex(std::uint32_t pixel) {
    return QString::asprintf("%08x", pixel).toStdString();
}

std::vector<std::string> pixels(const ReadPicture& read) {
    std::vector<std::string> all;
    for (const std::uint32_t pixel : read.picture.pixels)
        all.push_back(hex(pixel));
    return all;
}

QByteArray number(std::uint32_t value, int size, bool littleEndian = false) {
    QByteArray bytes;
    for (int i = 0; i < size; ++i)
        bytes.append(char(value >> 8 * (littleEndian ? i : size - 1 - i)));
    return bytes;
}

/// Sixteen pixels a side of one colour each: no encoder smears all of it.
constexpr int kCell = 16;
constexpr std::array<QRgb, 6> kCells = {0xFFE02020, 0xFF20C040, 0xFF3050E0,
                                        0xFFF0F0F0, 0xFF101010, 0xFFE0D020};

/// Three by two, upright.
QImage cells() {
    QImage image(3 * kCell, 2 * kCell, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, kCells[std::size_t(y / kCell * 3 + x / kCell)]);
    return image;
}

/// As a camera stores it that was held so: where its first row and its first column lie on the upright
/// picture is what the eight numbers say.
QImage stored(int orientation) {
    const QImage seen = cells();
    const int right = seen.width() - 1, bottom = seen.height() - 1;
    QImage image(orientation < 5 ? seen.size() : seen.size().transposed(), QImage::Format_RGB32);
    for (int row = 0; row < image.height(); ++row)
        for (int column = 0; column < image.width(); ++column) {
            const std::array<QPoint, 8> places = {QPoint(column, row),
                                                  {right - column, row},
                                                  {right - column, bottom - row},
                                                  {column, bottom - row},
                                                  {row, column},
                                                  {right - row, column},
                                                  {right - row, bottom - column},
                                                  {row, bottom - column}};
            image.setPixel(column, row, seen.pixel(places[std::size_t(orientation - 1)]));
        }
    return image;
}

QByteArray exif(int orientation) {
    return QByteArray("MM\0*\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0", 19) + char(orientation) +
           QByteArray(6, '\0');
}

QByteArray webpChunk(const QByteArray& name, const QByteArray& contents) {
    return name + number(std::uint32_t(contents.size()), 4, true) + contents +
           QByteArray(contents.size() & 1, '\0');
}

QByteArray withExif(const QImage& image, const QByteArray& format, const QByteArray& block) {
    QByteArray bytes = encoded(image, format);
    if (format == "jpeg") {
        const QByteArray contents = QByteArray("Exif\0\0", 6) + block;
        return bytes.insert(2, "\xFF\xE1" + number(std::uint32_t(contents.size()) + 2, 2) + contents);
    }
    if (format == "png")
        return bytes.insert(
            33, QByteArray::fromStdString(pngChunk("eXIf", block.toStdString()))); // after the header
    const QByteArray canvas = QByteArray("\x08\0\0\0", 4) +
                              number(std::uint32_t(image.width() - 1), 3, true) +
                              number(std::uint32_t(image.height() - 1), 3, true);
    const QByteArray chunks = webpChunk("VP8X", canvas) + bytes.mid(12) + webpChunk("EXIF", block);
    return "RIFF" + number(std::uint32_t(chunks.size()) + 4, 4, true) + "WEBP" + chunks;
}

void expectCells(const ReadPicture& read) {
    ASSERT_EQ(read.fault, "");
    ASSERT_EQ(read.picture.width, 3 * kCell);
    ASSERT_EQ(read.picture.height, 2 * kCell);
    for (int cell = 0; cell < 6; ++cell) {
        const QRgb seen = read.picture.at(cell % 3 * kCell + 8, cell / 3 * kCell + 8), meant = kCells[cell];
        EXPECT_NEAR(qRed(seen), qRed(meant), 3) << cell;
        EXPECT_NEAR(qGreen(seen), qGreen(meant), 3) << cell;
        EXPECT_NEAR(qBlue(seen), qBlue(meant), 3) << cell;
    }
}

class PictureReader : public DesktopTest {
  protected:
    void SetUp() override { QLoggingCategory::setFilterRules("*=false"); } // decoders complain
    void TearDown() override { QLoggingCategory::setFilterRules(""); }
    std::string write(const std::string& name, const QByteArray& bytes) const {
        QFile file(QString::fromStdString(folder / name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return folder / name;
    }
};

TEST_F(PictureReader, EveryKindIsReadWhateverItIsCalled) {
    for (const char* format : kFormats) {
        SCOPED_TRACE(format);
        expectCells(readPictureFile(write("picture.txt", encoded(cells(), format)), {}));
    }
}

TEST_F(PictureReader, EveryOrientationIsTurnedUpright) {
    for (int orientation = 1; orientation <= 8; ++orientation)
        for (const char* format : {"jpeg", "png", "webp"}) {
            SCOPED_TRACE(std::string(format) + " " + std::to_string(orientation));
            expectCells(read(withExif(stored(orientation), format, exif(orientation))));
        }
}

TEST_F(PictureReader, ATiffIsTurnedUpright) {
    const QImageIOHandler::Transformations turns[] = {QImageIOHandler::TransformationNone,
                                                      QImageIOHandler::TransformationMirror,
                                                      QImageIOHandler::TransformationRotate180,
                                                      QImageIOHandler::TransformationFlip,
                                                      QImageIOHandler::TransformationFlipAndRotate90,
                                                      QImageIOHandler::TransformationRotate90,
                                                      QImageIOHandler::TransformationMirrorAndRotate90,
                                                      QImageIOHandler::TransformationRotate270};
    for (int orientation = 1; orientation <= 8; ++orientation) {
        SCOPED_TRACE(orientation);
        expectCells(read(encoded(stored(orientation), "tiff", turns[orientation - 1])));
    }
}

TEST_F(PictureReader, AnOrientationThatIsNoneIsUpright) {
    expectCells(read(withExif(cells(), "png", exif(9))));
    expectCells(read(withExif(cells(), "png", "II*")));
    expectCells(read(withExif(cells(), "webp", QByteArray("MM\0*\xFF\xFF\xFF\xF0", 8))));
}

TEST_F(PictureReader, AProfileIsHonoured) {
    for (const char* format : kFormats) {
        SCOPED_TRACE(format);
        QImage image(16, 16, QImage::Format_RGB32);
        image.fill(0xFFC86432);
        image.setColorSpace(QColorSpace::DisplayP3);
        const ReadPicture picture = read(encoded(image, format));
        ASSERT_EQ(picture.fault + picture.remark, "");
        const QRgb seen = picture.picture.at(8, 8); // by the published matrices 214.9, 92.6, 31.0
        EXPECT_NEAR(qRed(seen), 215, 2);
        EXPECT_NEAR(qGreen(seen), 93, 2);
        EXPECT_NEAR(qBlue(seen), 31, 2);
    }
}

TEST_F(PictureReader, ADeepPictureIsRoundedAfterItsProfile) {
    QImage image(1, 1, QImage::Format_RGBX64);
    image.fill(QColor::fromRgba64(200 * 257, 100 * 257, 50 * 257));
    image.setColorSpace(QColorSpace::DisplayP3);
    EXPECT_THAT(pixels(read(encoded(image, "png"))), Each("ffd75d1f"));
}

TEST_F(PictureReader, ABrokenProfileIsSaidAndCountsAsNone) {
    const QByteArray profile = "ICC_PROFILE" + QByteArray("\0\x01\x01", 3) + QByteArray(200, 'x');
    const QByteArray jpeg =
        encoded(cells(), "jpeg")
            .insert(2, "\xFF\xE2" + number(std::uint32_t(profile.size()) + 2, 2) + profile);
    const ReadPicture picture = read(jpeg);
    expectCells(picture);
    EXPECT_EQ(picture.remark, "a: its color profile cannot be used; the colors count as sRGB");
    EXPECT_EQ(read(encoded(cells(), "jpeg")).remark, "");
}

TEST_F(PictureReader, AlphaIsKeptStraight) {
    QImage image(2, 1, QImage::Format_ARGB32);
    image.setPixel(0, 0, 0x7FFF0000);
    image.setPixel(1, 0, 0x8000FF00);
    for (const char* format : {"png", "tiff"}) {
        SCOPED_TRACE(format);
        EXPECT_THAT(pixels(read(encoded(image, format))), testing::ElementsAre("7fff0000", "8000ff00"));
    }
}

TEST_F(PictureReader, GreyAndIndexedPicturesAreRead) {
    QImage grey(1, 1, QImage::Format_Grayscale8), indexed(1, 1, QImage::Format_Indexed8);
    grey.fill(128);
    indexed.setColorTable({0xFF123456});
    indexed.fill(0);
    EXPECT_THAT(pixels(read(encoded(grey, "png"))), Each("ff808080"));
    EXPECT_THAT(pixels(read(encoded(indexed, "png"))), Each("ff123456"));
}

TEST_F(PictureReader, AKindWithoutReaderNamesItsPackage) {
    const auto without = [](const char* format) {
        return readPictureBytes("a", encoded(cells(), format), {}, {"png", "jpeg"}).fault;
    };
    EXPECT_EQ(without("tiff"), "a: TIFF pictures need the package qt6-image-formats-plugins");
    EXPECT_EQ(without("webp"), "a: WebP pictures need the package qt6-image-formats-plugins");
    EXPECT_EQ(without("jpeg"), "");
}

TEST_F(PictureReader, OtherFilesAreNoPictures) {
    EXPECT_EQ(read("GIF89a and more of it").fault, "a: no PNG, JPEG, TIFF or WebP picture");
    EXPECT_THAT(read("").fault, HasSubstr("no PNG"));
}

TEST_F(PictureReader, OnlyRegularFilesAreOpened) {
    const std::string pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(readPictureFile(pipe, {}).fault, "pipe: no regular file");
    EXPECT_THAT(readPictureFile(folder.path(), {}).fault, HasSubstr(": no regular file"));
    EXPECT_EQ(readPictureFile("/dev/zero", {}).fault, "zero: no regular file");
    EXPECT_EQ(readPictureFile(folder / "none.png", {}).fault, "none.png: No such file or directory");
}

/// A header alone, of that size.
QByteArray headerOfPng(std::uint32_t width, std::uint32_t height) {
    return QByteArray::fromStdString(pngHeader(width, height) + pngChunk("IDAT", ""));
}

TEST_F(PictureReader, TheHeaderIsCheckedBeforeAnythingIsDecoded) {
    EXPECT_EQ(read(headerOfPng(10'001, 10'000)).fault, "a: 10001 x 10000 pixels, more than 100 megapixels");
    EXPECT_THAT(read(headerOfPng(10'000, 10'000)).fault, StartsWith("a: damaged"));
    QByteArray jpeg = encoded(cells(), "jpeg");
    const qsizetype frame = jpeg.indexOf("\xFF\xC0");
    jpeg.replace(frame + 5, 4, number(65'000u << 16 | 65'000u, 4));
    EXPECT_EQ(read(jpeg).fault, "a: 65000 x 65000 pixels, more than 100 megapixels");
    const QByteArray canvas = QByteArray(4, '\0') + number(16'382, 3, true) + number(16'382, 3, true);
    const QByteArray chunks = webpChunk("VP8X", canvas) + encoded(cells(), "webp").mid(12);
    EXPECT_NE(read("RIFF" + number(std::uint32_t(chunks.size()) + 4, 4, true) + "WEBP" + chunks).fault, "");
    QByteArray tiff = encoded(cells(), "tiff");
    for (const char tag : {'\0', '\1'}) { // 256 and 257, each one number
        const bool littleEndian = tiff.startsWith("II");
        const qsizetype at =
            tiff.indexOf(littleEndian ? QByteArray(&tag, 1) + '\1' : '\1' + QByteArray(&tag, 1), 8);
        ASSERT_GT(at, 0);
        tiff.replace(at + 2, 10,
                     number(4, 2, littleEndian) + number(1, 4, littleEndian) +
                         number(1'000'000, 4, littleEndian));
    }
    EXPECT_NE(read(tiff).fault, "");
}

TEST_F(PictureReader, AJpegOfScansWithoutEndIsRefused) {
    QByteArray jpeg = encoded(cells(), "jpeg");
    jpeg.replace(jpeg.indexOf("\xFF\xC0") + 5, 4, number(10'000u << 16 | 10'000u, 4));
    const qsizetype scan = jpeg.indexOf("\xFF\xDA");
    const QByteArray again = jpeg.mid(scan, jpeg.size() - scan - 2);
    EXPECT_EQ(read(jpeg.insert(scan, again.repeated(64))).fault, "a: damaged: it has too many scans");
}

TEST_F(PictureReader, TheToolkitsLimitIsRaisedForTheCallAndPutBack) {
    QImage large(1000, 1000, QImage::Format_RGB32);
    large.fill(Qt::red);
    const QByteArray good = encoded(large, "png"), bad = good.left(good.size() / 2);
    const int before = QImageReader::allocationLimit();
    QImageReader::setAllocationLimit(1);
    const ReadPicture picture = read(good);
    EXPECT_EQ(picture.fault, "");
    EXPECT_EQ(picture.picture.pixels.size(), 1'000'000u);
    EXPECT_EQ(QImageReader::allocationLimit(), 1);
    EXPECT_NE(read(bad).fault, "");
    EXPECT_EQ(QImageReader::allocationLimit(), 1);
    QImageReader::setAllocationLimit(before);
}

TEST_F(PictureReader, WhatIsCutOffIsSaidToBeDamaged) {
    for (const char* format : kFormats) {
        const QByteArray whole = encoded(cells(), format);
        for (qsizetype size = 12; size < whole.size() - 12; size += 7) {
            const ReadPicture picture = read(whole.left(size));
            const bool told = std::string_view(format) == "png" || std::string_view(format) == "jpeg";
            EXPECT_THAT(picture.fault, StartsWith(told ? "a: damaged" : "a: ")) << format << ' ' << size;
            EXPECT_TRUE(picture.picture.empty());
        }
    }
}

TEST_F(PictureReader, DamagedFilesGiveAPictureOrAFault) {
    std::mt19937 random(7);
    for (const char* format : kFormats) {
        const QByteArray whole = encoded(cells(), format);
        for (int i = 0; i < 150; ++i) {
            QByteArray damaged = whole;
            for (int change = 0; change < 4; ++change)
                damaged[qsizetype(random() % std::uint32_t(damaged.size()))] = char(random());
            const ReadPicture picture = read(damaged);
            EXPECT_NE(picture.picture.empty(), picture.fault.empty()) << format << ' ' << i;
        }
    }
}

TEST_F(PictureReader, TheProgressGrowsAndCanEndTheWork) {
    QImage image(300, 300, QImage::Format_RGB32);
    std::mt19937 random(3);
    for (int y = 0; y < 300; ++y)
        for (int x = 0; x < 300; ++x)
            image.setPixel(x, y, 0xFF000000 | random() >> 8);
    for (const char* format : kFormats) {
        SCOPED_TRACE(format);
        const QByteArray bytes = encoded(image, format);
        std::vector<double> told;
        EXPECT_EQ(readPictureBytes("a", bytes, [&](double done) { return told.push_back(done), true; }).fault,
                  "");
        EXPECT_THAT(told, Each(testing::AllOf(testing::Ge(0), testing::Le(1))));
        EXPECT_GT(*std::ranges::max_element(told), 0.5);
        int left = int(told.size()) - 2;
        const ReadPicture ended = readPictureBytes("a", bytes, [&](double) { return --left > 0; });
        EXPECT_TRUE(ended.picture.empty());
        EXPECT_EQ(ended.fault, "");
    }
}

} // namespace
} // namespace chromalog::test
