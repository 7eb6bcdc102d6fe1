#pragma once

#include "desktop/picture_reading.h"

class QMimeData;

namespace chromalog {

/// The picture that mime data offers, encoded or as a file of this machine, for a Pasteboard; empty where it
/// offers none. It is fetched as long as the data is there.
std::function<PictureSource()> pictureIn(const QMimeData&);

} // namespace chromalog
