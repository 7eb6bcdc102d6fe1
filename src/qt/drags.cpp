#include "qt/drags.h"

#include "qt/convert.h"
#include "qt/pictures/picture_mime.h"

#include <QDrag>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QPainter>
#include <QPixmap>
#include <QWidget>

#include <algorithm>

namespace chromalog {

ColourMime::ColourMime(const Pasteboard& pasteboard, const DragSource* source)
    : pasteboard_(pasteboard), source_(source) {
    if (const auto& c = pasteboard.colour) {
        // Four numbers, as other programs see it: a dropped colour remembers no hue and saturation.
        pasteboard_.colour = Colour::rgb(c->red(), c->green(), c->blue(), c->alpha());
        setColorData(toQt(*c));
    }
    if (pasteboard.text) setText(toQt(*pasteboard.text));
}

namespace {

/// What is declared as text. Some programs name the encoding in the type, and offer no other.
std::optional<std::string> textOf(const QMimeData& mime) {
    if (mime.hasText()) return fromQt(mime.text());
    for (const QString& type : mime.formats())
        if (type.toLower().remove(' ').remove('"') == "text/plain;charset=utf-8")
            return fromQt(QString::fromUtf8(mime.data(type)));
    return std::nullopt;
}

} // namespace

Pasteboard pasteboardOf(const QMimeData* mime, SystemBoard board) {
    if (!mime) return {};
    if (const auto* ours = dynamic_cast<const ColourMime*>(mime)) return ours->pasteboard();
    QElapsedTimer asked;
    asked.start();
    // The toolkit waits seconds for every answer of a program that hangs: whoever lets us wait is asked no
    // more.
    const auto hangs = [&asked] { return asked.restart() > 2000; }; // milliseconds
    Pasteboard out;
    out.colourType = mime->hasColor();
    if (hangs()) return out;
    if (out.colourType) {
        const QColor colour = qvariant_cast<QColor>(mime->colorData());
        if (colour.isValid()) out.colour = fromQt(colour);
    } else if (const auto colour = SystemColours::on(board)) {
        out.colourType = true;
        out.colour = fromQt(*colour);
    }
    if (hangs()) return out;
    out.text = textOf(*mime);
    out.textType = out.text.has_value();
    if (!hangs()) out.picture = pictureIn(*mime);
    return out;
}

DragInfo dragInfoOf(const QDropEvent& event, Point location) {
    DragInfo info;
    info.location = location;
    if (const auto* ours = dynamic_cast<const ColourMime*>(event.mimeData())) info.source = ours->source();
    info.sourceAllows = event.possibleActions() != Qt::IgnoreAction;
    info.pasteboard = pasteboardOf(event.mimeData(), SystemBoard::drag);
    return info;
}

Drags::Drags() : run([](QDrag& drag) { return drag.exec(Qt::CopyAction, Qt::CopyAction); }) {}

namespace {

QPixmap pictureOf(const DragImage& image, double scale) {
    QPixmap picture(QSize(int(image.size.w * scale), int(image.size.h * scale)));
    picture.fill(image.blackFrame ? QColor(Qt::black) : toQt(image.fill));
    if (image.blackFrame) { // whole device pixels wide, on all four sides
        const int width = std::max(1, int(scale));
        QPainter painter(&picture);
        painter.fillRect(picture.rect().adjusted(width, width, -width, -width), toQt(image.fill));
    }
    picture.setDevicePixelRatio(scale);
    return picture;
}

} // namespace

void Drags::begin(const DragRequest& request, QWidget* from) {
    last = DragRecord{request, Qt::IgnoreAction};
    if (!from) return;
    auto* drag = new QDrag(from); // the toolkit deletes it and its data
    drag->setMimeData(new ColourMime(request.pasteboard, request.source));
    drag->setPixmap(pictureOf(request.image, from->devicePixelRatioF()));
    drag->setHotSpot(QPoint(int(request.image.size.w / 2), int(request.image.size.h / 2)));
    const Qt::DropAction result = run(*drag);
    if (last) last->result = result;
}

} // namespace chromalog
