#pragma once

#include "desktop/picture_reading.h"

#include <QImage>

namespace chromalog {

/// The picture in sRGB and in words as a Picture has them. Its profile counts; where it has one that cannot
/// be used the remark says so, and none counts as sRGB. The progress goes on from `from` to 1; where it says
/// no the result is empty.
ReadPicture toSrgb(QImage, const WorkProgress&, double from);

} // namespace chromalog
