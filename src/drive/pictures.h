#pragma once

#include <QImage>

class QWidget;

namespace chromalog {
class DrivenDialog;
}

namespace chromalog::drive {

/// The windows on the screen at its scale, each where it stands: the dialog, and panels and menus over it.
QImage screenPicture();

/// The outlet at one pixel a point, a view as picks read it. Throws CommandError where it is too large.
QImage ownPicture(DrivenDialog&, QWidget& outlet);

/// Writes a PNG file, which takes the place of one that is there only when it is whole; CommandError where it
/// cannot.
void writePicture(const QImage&, const std::string& path);

} // namespace chromalog::drive
