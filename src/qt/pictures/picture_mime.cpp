#include "qt/pictures/picture_mime.h"

#include "base/translated.h"
#include "pictures/picture_kind.h"
#include "qt/convert.h"
#include "qt/pictures/picture_reader.h"

#include <QMimeData>
#include <QPointer>
#include <QUrl>

namespace chromalog {
namespace {

constexpr const char* kName = translatable("the pasted picture");

QString fileIn(const QMimeData& mime) {
    for (const QUrl& url : mime.urls())
        if (QString path = url.toLocalFile(); !path.isEmpty()) return path;
    return {};
}

/// The first encoding that we read; empty where there is none.
QString encodingIn(const QMimeData& mime) {
    for (const PictureKind& kind : pictureKinds())
        if (QString type = toQt(kind.mime); mime.hasFormat(type)) return type;
    return {};
}

PictureSource fetch(const QMimeData& mime) {
    if (const QString path = fileIn(mime); !path.isEmpty()) return pictureAt(fromQt(path));
    if (QString type = encodingIn(mime); !type.isEmpty())
        return {translated(kName), [bytes = mime.data(type)](const WorkProgress& progress) {
                    return readPictureBytes(translated(kName), bytes, progress);
                }};
    return {translated(kName),
            [image = qvariant_cast<QImage>(mime.imageData())](const WorkProgress& progress) {
                return readPictureImage(translated(kName), image, progress);
            }};
}

} // namespace

std::function<PictureSource()> pictureIn(const QMimeData& mime) {
    if (fileIn(mime).isEmpty() && !mime.hasImage() && encodingIn(mime).isEmpty()) return {};
    return [there = QPointer<const QMimeData>(&mime)] { return there ? fetch(*there) : PictureSource(); };
}

} // namespace chromalog
