#pragma once

#include "desktop/picture_reading.h"

#include <QByteArray>
#include <QImage>
#include <QStringList>

namespace chromalog {

inline constexpr qint64 kMostPicturePixels = 100'000'000;

/// The formats that the toolkit has readers for, as it names them.
QStringList pictureReaders();

// PNG, JPEG, TIFF and WebP by their contents, the first picture of several; Exif orientation and an embedded
// profile are honoured. The header is checked before anything is decoded. On any thread; they throw nothing.

/// A regular file; it never waits for another process.
ReadPicture readPictureFile(const std::string& path, const WorkProgress&,
                            const QStringList& readers = pictureReaders());
ReadPicture readPictureBytes(const std::string& name, const QByteArray&, const WorkProgress&,
                             const QStringList& readers = pictureReaders());

/// For a Desktop or a Pasteboard.
PictureSource pictureAt(const std::string& path);

/// A picture that another part of this process gave away.
ReadPicture readPictureImage(const std::string& name, QImage, const WorkProgress&);

} // namespace chromalog
