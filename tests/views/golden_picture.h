#pragma once

#include "base/bitmap.h"

#include <string>

namespace chromalog::test {

/// Whether a picture equals the reference of that name in tests/views/golden. Where it does not, writes it
/// beside the reference as NAME.pam.out, and as NAME.pam.diff what differs, white on black; dev/accept_golden
/// accepts it.
bool equalsGolden(const Bitmap&, const std::string& name);

} // namespace chromalog::test
