#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace chromalog {

/// A kind of picture file that can be read.
struct PictureKind {
    std::string_view name;    ///< "TIFF", for people
    std::string_view format;  ///< "tiff", as the toolkit's readers are named
    std::string_view mime;    ///< "image/tiff"
    std::string_view package; ///< the Debian package that brings its reader
};

inline constexpr std::size_t kPictureStart = 12; ///< bytes that tell the kind

std::span<const PictureKind> pictureKinds();

/// By the first bytes, whatever the file is called; null for every other kind.
const PictureKind* pictureKindOf(std::span<const std::uint8_t> start);

/// The extensions of picture files, for panels.
std::vector<std::string> pictureExtensions();

} // namespace chromalog
