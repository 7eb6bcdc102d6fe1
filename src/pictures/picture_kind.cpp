#include "pictures/picture_kind.h"

namespace chromalog {
namespace {

constexpr PictureKind kKinds[] = {
    {"PNG", "png", "image/png", "libqt6gui6"},
    {"JPEG", "jpeg", "image/jpeg", "libqt6gui6"},
    {"TIFF", "tiff", "image/tiff", "qt6-image-formats-plugins"},
    {"WebP", "webp", "image/webp", "qt6-image-formats-plugins"},
};

struct Signature {
    std::size_t at;
    std::string_view bytes;
    const PictureKind& kind;
};

using namespace std::string_view_literals;

constexpr Signature kSignatures[] = {
    {0, "\x89PNG\r\n\x1A\n"sv, kKinds[0]},
    {0, "\xFF\xD8\xFF"sv, kKinds[1]},
    {0, "II*\0"sv, kKinds[2]},
    {0, "MM\0*"sv, kKinds[2]},
    {0, "II+\0"sv, kKinds[2]},
    {0, "MM\0+"sv, kKinds[2]},
    {8, "WEBP"sv, kKinds[3]},
};

} // namespace

std::span<const PictureKind> pictureKinds() {
    return kKinds;
}

const PictureKind* pictureKindOf(std::span<const std::uint8_t> start) {
    const std::string_view bytes(reinterpret_cast<const char*>(start.data()), start.size());
    for (const Signature& signature : kSignatures)
        if (bytes.size() >= signature.at && bytes.substr(signature.at).starts_with(signature.bytes))
            return &signature.kind;
    return nullptr;
}

std::vector<std::string> pictureExtensions() {
    return {"png", "jpg", "jpeg", "tif", "tiff", "webp"};
}

} // namespace chromalog
