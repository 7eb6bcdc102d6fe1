#pragma once

#include "pictures/bytes_at.h"

namespace chromalog {

/// How many scans a JPEG file may have: each costs a decoder a walk over all of the picture. A few more where
/// its metadata look like some.
std::int64_t scansOfJpeg(const BytesAt&);

} // namespace chromalog
