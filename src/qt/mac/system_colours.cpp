#include "qt/system_colours.h"

#include "qt/mac/objective_c.h"

#include <QByteArray>
#include <QtGlobal>

#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
#include <QUtiMimeConverter>
#include <QVariant>
#endif

namespace chromalog {
namespace {

using mac::classNamed;
using mac::send;

/// In the space that the wheel and the fields count in; nothing where it has no place there (a pattern).
std::optional<QColor> colourOf(mac::Object colour) {
    const mac::Object rgb =
        send(colour, "colorUsingColorSpaceName:", mac::textOf("NSCalibratedRGBColorSpace"));
    if (!rgb) return std::nullopt;
    const auto component = [rgb](const char* name) { return float(send<double>(rgb, name)); };
    const QColor found = QColor::fromRgbF(component("redComponent"), component("greenComponent"),
                                          component("blueComponent"), component("alphaComponent"));
    return found.isValid() ? std::optional(found) : std::nullopt;
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)

constexpr const char* kColourType = "com.apple.cocoa.pasteboard.color";

std::optional<QColor> colourOfBytes(const QByteArray& bytes) {
    const mac::ReleasePool pool;
    const mac::Object data =
        send(classNamed("NSData"), "dataWithBytes:length:", static_cast<const void*>(bytes.constData()),
             static_cast<unsigned long>(bytes.size()));
    const mac::Object colour = send(send(classNamed("NSColor"), "alloc"),
                                    "initWithPasteboardPropertyList:ofType:", data, mac::textOf(kColourType));
    const auto found = colourOf(colour);
    send<void>(colour, "release");
    return found;
}

QByteArray bytesOf(const QColor& colour) {
    const mac::ReleasePool pool;
    const mac::Object made =
        send(classNamed("NSColor"), "colorWithCalibratedRed:green:blue:alpha:", double(colour.redF()),
             double(colour.greenF()), double(colour.blueF()), double(colour.alphaF()));
    const mac::Object data = send(made, "pasteboardPropertyListForType:", mac::textOf(kColourType));
    return {send<const char*>(data, "bytes"), qsizetype(send<unsigned long>(data, "length"))};
}

#endif

} // namespace

#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)

struct SystemColours::Converter : QUtiMimeConverter {
    QString mimeForUti(const QString& uti) const override { return uti == kColourType ? kMime : QString(); }
    QString utiForMime(const QString& mime) const override {
        return mime == kMime ? QString(kColourType) : QString();
    }
    QVariant convertToMime(const QString&, const QList<QByteArray>& data, const QString&) const override {
        const auto colour = data.isEmpty() ? std::nullopt : colourOfBytes(data.first());
        return colour ? QVariant(*colour) : QVariant();
    }
    QList<QByteArray> convertFromMime(const QString&, const QVariant& data, const QString&) const override {
        // Where the toolkit asks for bytes it hands over the name of the colour.
        const QColor colour = data.userType() == QMetaType::QByteArray
                                  ? QColor(QString::fromLatin1(data.toByteArray()))
                                  : qvariant_cast<QColor>(data);
        return colour.isValid() ? QList{bytesOf(colour)} : QList<QByteArray>();
    }

    static inline const QString kMime = "application/x-color"; // as QMimeData keeps colours
};

SystemColours::SystemColours() : converter_(std::make_unique<Converter>()) {}

std::optional<QColor> SystemColours::on(SystemBoard) {
    return std::nullopt; // the toolkit has read it
}

#else

// The toolkit has no door for other types yet: what others offer is read, what this dialog offers reaches
// programs of the same toolkit alone.
struct SystemColours::Converter {};

SystemColours::SystemColours() = default;

std::optional<QColor> SystemColours::on(SystemBoard board) {
    const mac::ReleasePool pool;
    const char* name = board == SystemBoard::drag ? "Apple CFPasteboard drag" : "Apple CFPasteboard general";
    const mac::Object pasteboard = send(classNamed("NSPasteboard"), "pasteboardWithName:", mac::textOf(name));
    return colourOf(send(classNamed("NSColor"), "colorFromPasteboard:", pasteboard));
}

#endif

SystemColours::~SystemColours() = default;

} // namespace chromalog
