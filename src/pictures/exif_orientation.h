#pragma once

#include "pictures/bytes_at.h"

#include <span>

namespace chromalog {

/// The orientation that an Exif block tells of its picture, 1..8; 1 (upright) where it tells none.
int exifOrientation(std::span<const std::uint8_t> exif);

/// The orientation of a PNG or a WebP file, by its Exif chunk; 1 where it has none.
int orientationOfPng(const BytesAt&);
int orientationOfWebp(const BytesAt&);

} // namespace chromalog
