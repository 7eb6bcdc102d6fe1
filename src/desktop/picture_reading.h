#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

namespace chromalog {

/// A decoded picture in sRGB, upright, row 0 at the top. Words of alpha, red, green, blue from the highest
/// byte down, straight, as a Bitmap has them. Copies share the pixels.
struct Picture {
    int width = 0, height = 0;             ///< pixels
    std::span<const std::uint32_t> pixels; ///< width * height
    std::shared_ptr<const void> memory;    ///< what they lie in

    bool empty() const { return width <= 0 || height <= 0; }
    std::uint32_t at(int column, int row) const {
        return pixels[static_cast<std::size_t>(row) * static_cast<std::size_t>(width) +
                      static_cast<std::size_t>(column)];
    }
};

struct ReadPicture {
    Picture picture;
    std::string fault;  ///< why there is none; empty also where the progress said no
    std::string remark; ///< what a person should know of a picture that was read
};

/// Told the part that is done, 0..1; false ends the work as soon as it can.
using WorkProgress = std::function<bool(double done)>;

/// Where a picture comes from.
struct PictureSource {
    std::string name; ///< for people
    /// On any thread; throws nothing. Empty: there is none.
    std::function<ReadPicture(const WorkProgress&)> read;
};

} // namespace chromalog
