#include "drive/pictures.h"

#include "drive/command_error.h"
#include "files/file_io.h"
#include "qt/driven_dialog.h"

#include <QApplication>
#include <QBuffer>
#include <QImageWriter>
#include <QPainter>
#include <QPixmap>
#include <QWidget>

#include <algorithm>
#include <cerrno>

namespace chromalog::drive {
namespace {

/// Windows to show, the lowest first: a window comes before what was opened from it, the one that waits for
/// an answer comes after all but menus.
QList<QWidget*> shownWindows() {
    QList<QWidget*> shown;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->windowType() != Qt::ToolTip) shown.append(window);
    const auto depth = [](const QWidget* window) {
        int count = window->windowType() == Qt::Popup ? 1000 : 0;
        if (window == QApplication::activeModalWidget()) count += 500;
        for (; window; window = window->parentWidget())
            ++count;
        return count;
    };
    std::stable_sort(shown.begin(), shown.end(), [&](auto* a, auto* b) { return depth(a) < depth(b); });
    return shown;
}

QImage imageOf(const Bitmap& bitmap) {
    QImage image(bitmap.width, bitmap.height, QImage::Format_ARGB32);
    for (int row = 0; row < bitmap.height; ++row)
        std::copy_n(bitmap.pixels.begin() + std::ptrdiff_t(row) * bitmap.width, bitmap.width,
                    reinterpret_cast<std::uint32_t*>(image.scanLine(row)));
    return image;
}

std::string sizeText(Size r) {
    return fromQt(QString::number(r.w) + " x " + QString::number(r.h));
}

} // namespace

QImage screenPicture() {
    const auto windows = shownWindows();
    if (windows.isEmpty()) throw CommandError{"no window is on the screen"};
    QRect all;
    for (const QWidget* window : windows)
        all |= window->geometry();
    const double scale = windows.front()->devicePixelRatioF();
    QImage picture((QSizeF(all.size()) * scale).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::darkGray);
    QPainter painter(&picture);
    for (QWidget* window : windows)
        painter.drawPixmap(window->geometry().topLeft() - all.topLeft(), window->grab());
    return picture;
}

QImage ownPicture(DrivenDialog& dialog, QWidget& outlet) {
    const std::optional<Size> view = dialog.viewSize(outlet);
    const Size size = view.value_or(Size{double(outlet.width()), double(outlet.height())});
    if (size.w > kLongestSide || size.h > kLongestSide)
        throw CommandError{fromQt(outlet.objectName()) + " is too large for a picture: " + sizeText(size) +
                           ", at most " + std::to_string(kLongestSide) + " a side"};
    if (view) return imageOf(dialog.viewPicture(outlet));
    QImage picture(outlet.size(), QImage::Format_RGB32);
    outlet.render(&picture);
    return picture;
}

void writePicture(const QImage& picture, const std::string& path) {
    QByteArray file;
    QBuffer buffer(&file);
    QImageWriter writer(&buffer, "png");
    if (!writer.write(picture)) throw CommandError{path + ": " + fromQt(writer.errorString())};
    const std::span bytes(reinterpret_cast<const std::uint8_t*>(file.constData()), std::size_t(file.size()));
    if (!writeDataToFileAtURL(path, bytes, 0, Flush::later))
        throw CommandError{path + ": " + reasonOf(errno)};
}

} // namespace chromalog::drive
