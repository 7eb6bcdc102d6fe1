#include "views/wheel_rim.h"

#include "views/wheel_picture.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace chromalog {
namespace {

constexpr std::uint32_t kOpaque = 0xFF000000U;

std::uint32_t opaquePixel(const Colour& c) {
    const auto byte = [](double v) { return static_cast<std::uint32_t>(std::lround(v * 255)); };
    return kOpaque | byte(c.red()) << 16 | byte(c.green()) << 8 | byte(c.blue());
}

std::uint32_t mixed(std::uint32_t a, std::uint32_t b, float shareOfA) {
    constexpr float half = 0.5F; // rounds; a call of lround would be three for each pixel in every frame
    std::uint32_t out = kOpaque;
    for (int shift = 0; shift <= 16; shift += 8) {
        const auto from = static_cast<float>((a >> shift) & 0xFF),
                   to = static_cast<float>((b >> shift) & 0xFF);
        out |= static_cast<std::uint32_t>(from * shareOfA + to * (1 - shareOfA) + half) << shift;
    }
    return out;
}

/// The pieces of a picture, still empty. The middle that a frame leaves out lies within the disc, two pixels
/// from its rim.
std::vector<WheelRim::Piece> piecesOf(int size, WheelRim::Cut cut) {
    struct Box {
        int x, y, width, height;
    };
    std::vector<Box> boxes{{0, 0, size, size}};
    const double radius = size / 2.0;
    const int side = static_cast<int>(std::ceil(radius - (radius - 3) * std::numbers::sqrt2 / 2));
    if (const int middle = size - 2 * side; cut == WheelRim::Cut::frame && middle > 0)
        boxes = {{0, 0, size, side},
                 {0, side, side, middle},
                 {size - side, side, side, middle},
                 {0, size - side, size, side}};
    std::vector<WheelRim::Piece> pieces;
    for (const Box& box : boxes) {
        std::vector<std::uint32_t> pixels(static_cast<std::size_t>(box.width) * box.height);
        pieces.push_back({box.x, box.y, {box.width, box.height, std::move(pixels), true}});
    }
    return pieces;
}

} // namespace

const std::vector<WheelRim::Piece>& WheelRim::around(const Bitmap& wheel, float disc, const Colour& surround,
                                                     Cut cut) {
    const std::uint32_t ground = opaquePixel(surround);
    const bool measured = size_ == wheel.width && surround_ == ground && cut_ == cut;
    if (!measured) {
        surround_ = ground;
        cut_ = cut;
        measure(wheel, cut);
    }
    if (!measured || disc_ != disc) blend(wheel);
    disc_ = disc;
    return pieces_;
}

void WheelRim::measure(const Bitmap& wheel, Cut cut) {
    size_ = 0; // measured anew, should there be no memory for it now
    rim_.clear();
    pieces_.clear();
    if (wheel.empty()) return;
    pieces_ = piecesOf(wheel.width, cut);
    for (int y = 0; y < wheel.height; ++y)
        measureRow(wheel, y);
    size_ = wheel.width;
}

/// With the surround, from one column to another.
void WheelRim::fill(int y, int begin, int end) {
    for (Piece& piece : pieces_) {
        Bitmap& part = piece.bitmap;
        if (y < piece.y || y >= piece.y + part.height) continue;
        const int first = std::clamp(begin - piece.x, 0, part.width),
                  last = std::clamp(end - piece.x, 0, part.width);
        const auto row = part.pixels.begin() + static_cast<std::ptrdiff_t>(y - piece.y) * part.width;
        std::fill(row + first, row + last, surround_);
    }
}

/// From the row's end inwards to the disc, and the other half likewise: most pixels are never looked at.
void WheelRim::measureRow(const Bitmap& wheel, int y) {
    const double radius = wheel.width / 2.0, dy = y - radius;
    const auto isIn = [&](int x, double within) {
        return within > 0 && (x - radius) * (x - radius) + dy * dy <= within * within;
    };
    int left = 0, right = wheel.width; // what the disc with its rim leaves of the row
    while (left < right && !isIn(left, radius + 1))
        ++left;
    while (right > left && !isIn(right - 1, radius + 1))
        --right;
    fill(y, 0, left);
    fill(y, right, wheel.width);
    for (; left < right && !isIn(left, radius - 1); ++left)
        addPixel(wheel, left, y);
    for (int x = right; x > left && !isIn(x - 1, radius - 1); --x)
        addPixel(wheel, x - 1, y);
}

/// A pixel near the rim. The picture's own edge of the disc may let the ground through: it is shown opaque,
/// as picks read it.
void WheelRim::addPixel(const Bitmap& wheel, int x, int y) {
    const auto radius = static_cast<float>(wheel.width / 2.0);
    const auto indexOf = [](const Bitmap& bitmap, long column, long row) {
        return static_cast<std::uint32_t>(row * bitmap.width + column);
    };
    const auto holds = [x, y](const Piece& piece) {
        return x >= piece.x && x < piece.x + piece.bitmap.width && y >= piece.y &&
               y < piece.y + piece.bitmap.height;
    };
    const auto piece = std::ranges::find_if(pieces_, holds);
    if (piece == pieces_.end()) return; // not so near
    RimPixel pixel{indexOf(piece->bitmap, x - piece->x, y - piece->y), indexOf(wheel, x, y), 1,
                   static_cast<std::uint32_t>(piece - pieces_.begin())};
    float hue = 0, saturation = 0;
    getColorWheelValue(x, y, &hue, &saturation, radius);
    if (saturation < 1) {
        if (wheel.pixels[pixel.from] < kOpaque) rim_.push_back(pixel);
        return;
    }
    const float distance = saturation * radius, inward = (radius - 1) / distance;
    const auto moved = [&](int v) {
        return std::clamp(std::lround(radius + (static_cast<float>(v) - radius) * inward), 0L,
                          wheel.width - 1L);
    };
    pixel.from = indexOf(wheel, moved(x), moved(y));
    pixel.share = std::clamp(1 - (distance - radius), 0.0F, 1.0F);
    rim_.push_back(pixel);
}

void WheelRim::blend(const Bitmap& wheel) {
    for (const RimPixel& pixel : rim_)
        pieces_[pixel.piece].bitmap.pixels[pixel.at] =
            mixed(wheel.pixels[pixel.from], surround_, pixel.share);
}

} // namespace chromalog
