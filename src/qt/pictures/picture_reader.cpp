#include "qt/pictures/picture_reader.h"

#include "base/file_name.h"
#include "base/translated.h"
#include "files/descriptor.h"
#include "files/file_io.h"
#include "pictures/exif_orientation.h"
#include "pictures/jpeg_scans.h"
#include "pictures/picture_kind.h"
#include "qt/convert.h"
#include "qt/pictures/to_srgb.h"
#include "qt/pictures/watched_device.h"

#include <QImageReader>
#include <QTransform>

#include <algorithm>
#include <array>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>

namespace chromalog {
namespace {

constexpr int kMostMegabytes = 800; ///< decoded: 100 megapixels of four 16-bit channels
constexpr qint64 kMostScannedPixels = 64 * kMostPicturePixels;
constexpr double kDecodingPart = 0.8; ///< of the progress

/// What goes wrong with a picture, for people.
struct Fault {
    std::string text;
};

/// The toolkit's limit is one of the whole process.
class RaisedLimit {
  public:
    RaisedLimit() : before_(QImageReader::allocationLimit()) {
        QImageReader::setAllocationLimit(kMostMegabytes);
    }
    ~RaisedLimit() { QImageReader::setAllocationLimit(before_); }
    RaisedLimit(const RaisedLimit&) = delete;
    RaisedLimit& operator=(const RaisedLimit&) = delete;

  private:
    const int before_;
};

std::string noKnownPicture() {
    std::string most;
    const auto kinds = pictureKinds();
    for (const PictureKind& kind : kinds.first(kinds.size() - 1))
        most.append(most.empty() ? "" : ", ").append(kind.name);
    return translated("no %1 or %2 picture", most, kinds.back().name);
}

const PictureKind& kindOf(QIODevice& device, const QStringList& readers) {
    std::array<std::uint8_t, kPictureStart> start{};
    const qint64 got = device.read(reinterpret_cast<char*>(start.data()), qint64(start.size()));
    device.seek(0);
    const PictureKind* kind = pictureKindOf(std::span(start).first(std::size_t(std::max<qint64>(got, 0))));
    if (!kind) throw Fault{noKnownPicture()};
    if (!readers.contains(toQt(kind->format)))
        throw Fault{translated("%1 pictures need the package %2", kind->name, kind->package)};
    return *kind;
}

void checkSize(const QSize& size) {
    if (size.width() <= 0 || size.height() <= 0) throw Fault{translated("damaged: its header tells no size")};
    if (qint64(size.width()) * size.height() > kMostPicturePixels)
        throw Fault{translated("%1 x %2 pixels, more than 100 megapixels", size.width(), size.height())};
}

BytesAt bytesOf(WatchedDevice& device) {
    return [&device](std::uint64_t offset, std::size_t count) {
        std::vector<std::uint8_t> bytes;
        if (offset >= std::uint64_t(device.size()) || !device.seek(qint64(offset))) return bytes;
        bytes.resize(std::min(count, std::size_t(device.size()) - std::size_t(offset)));
        const qint64 got = device.read(reinterpret_cast<char*>(bytes.data()), qint64(bytes.size()));
        bytes.resize(std::size_t(std::max<qint64>(got, 0)));
        return bytes;
    };
}

/// Before anything is decoded: a few bytes can stand for work without end.
void check(const PictureKind& kind, const QSize& size, WatchedDevice& device) {
    checkSize(size);
    if (kind.format != "jpeg") return;
    const qint64 scans = scansOfJpeg(bytesOf(device));
    if (scans * size.width() * size.height() > kMostScannedPixels)
        throw Fault{translated("damaged: it has too many scans")};
}

/// Where the toolkit does not look for it.
int orientationOf(const PictureKind& kind, WatchedDevice& device) {
    return kind.format == "png"    ? orientationOfPng(bytesOf(device))
           : kind.format == "webp" ? orientationOfWebp(bytesOf(device))
                                   : 1;
}

/// Orientations as Exif numbers them.
QImage upright(const QImage& image, int orientation) {
    const bool mirrored = orientation == 2 || orientation == 4 || orientation == 5 || orientation == 7;
    const int turns = orientation == 3 || orientation == 4   ? 180
                      : orientation == 6 || orientation == 7 ? 90
                      : orientation == 5 || orientation == 8 ? 270
                                                             : 0;
    const QImage first = mirrored ? image.mirrored(true, false) : image;
    return turns == 0 ? first : first.transformed(QTransform().rotate(turns));
}

QImage decode(WatchedDevice& device, const QStringList& readers) {
    const PictureKind& kind = kindOf(device, readers);
    QImageReader reader(&device, QByteArray(kind.format.data(), qsizetype(kind.format.size())));
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    const qint64 at = device.pos(); // the header has been read
    check(kind, size, device);
    const bool turnsItself = reader.supportsOption(QImageIOHandler::ImageTransformation);
    const int orientation = turnsItself ? 1 : orientationOf(kind, device);
    device.seek(at);
    device.startAnew();
    QImage image;
    const RaisedLimit raised;
    const bool done = reader.read(&image) && !image.isNull();
    const bool needsAll = kind.format == "jpeg"; // else it paints what is missing grey, and says nothing
    if (device.ranOut() && (needsAll || (!done && kind.format == "png")))
        throw Fault{translated("damaged: it ends too early")};
    if (!done) throw Fault{translated("it cannot be decoded: %1", fromQt(reader.errorString()))};
    return orientation == 1 ? image : upright(image, orientation);
}

ReadPicture readFrom(WatchedDevice& device, const WorkProgress& progress, const QStringList& readers) {
    QImage image;
    try {
        image = decode(device, readers);
    } catch (const Fault&) {
        if (device.stopped()) return {};
        if (device.failed()) throw Fault{translated("it cannot be read")};
        throw;
    }
    return device.stopped() ? ReadPicture() : toSrgb(std::move(image), progress, kDecodingPart);
}

/// Nothing leaves a thread.
template <typename Work> ReadPicture guardedRead(const std::string& name, const Work& work) {
    ReadPicture read;
    try {
        read = work();
    } catch (const Fault& fault) {
        read = {{}, fault.text, {}};
    } catch (...) {
        read = {{}, translated("there is not enough memory"), {}};
    }
    for (std::string* text : {&read.fault, &read.remark})
        if (!text->empty()) *text = name + ": " + *text;
    return read;
}

} // namespace

QStringList pictureReaders() {
    QStringList names;
    for (const QByteArray& name : QImageReader::supportedImageFormats())
        names.append(QString::fromLatin1(name));
    return names;
}

ReadPicture readPictureFile(const std::string& path, const WorkProgress& progress,
                            const QStringList& readers) {
    return guardedRead(std::string(fileNameOf(path)), [&] {
        // Not blocking: opening a pipe without a writer would wait for one.
        const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
        struct stat status {};
        if (!file.isOpen() || ::fstat(file.get(), &status) != 0) throw Fault{reasonOf(errno)};
        if (!S_ISREG(status.st_mode)) throw Fault{translated("no regular file")};
        const auto readAt = [&file](char* into, qint64 count, qint64 offset) -> qint64 {
            return ::pread(file.get(), into, std::size_t(count), offset);
        };
        WatchedDevice device(status.st_size, readAt, progress, kDecodingPart);
        return readFrom(device, progress, readers);
    });
}

ReadPicture readPictureBytes(const std::string& name, const QByteArray& bytes, const WorkProgress& progress,
                             const QStringList& readers) {
    return guardedRead(name, [&] {
        const auto readAt = [&bytes](char* into, qint64 count, qint64 offset) -> qint64 {
            std::memcpy(into, bytes.constData() + offset, std::size_t(count));
            return count;
        };
        WatchedDevice device(bytes.size(), readAt, progress, kDecodingPart);
        return readFrom(device, progress, readers);
    });
}

PictureSource pictureAt(const std::string& path) {
    return {std::string(fileNameOf(path)),
            [path](const WorkProgress& progress) { return readPictureFile(path, progress); }};
}

ReadPicture readPictureImage(const std::string& name, QImage image, const WorkProgress& progress) {
    return guardedRead(name, [&] {
        checkSize(image.size());
        return toSrgb(std::move(image), progress, 0);
    });
}

} // namespace chromalog
