#include "judge/contrast_sample.h"

#include "base/translated.h"

#include <utility>

namespace chromalog {
namespace {

constexpr double kMargin = 8, kNormal = 13, kLarge = 24; // points
constexpr double kHigh = 56;                             ///< has room for both sizes

void drawHalf(Canvas& canvas, const Rect& half, const Colour& text, const Colour& ground,
              const std::string& words) {
    canvas.setFill(ground);
    canvas.fillRect(half);
    canvas.setFill(text);
    const double width = half.w - 2 * kMargin, left = half.x + kMargin;
    const bool high = half.h >= kHigh;
    if (high)
        canvas.drawText({left, half.y + kMargin + kLarge * 0.8}, translated("Large text"), {{}, kLarge},
                        width);
    const double baseline = high ? half.y + half.h - kMargin - 2 : half.y + half.h / 2 + kNormal * 0.35;
    canvas.drawText({left, baseline}, words, {{}, kNormal}, width);
}

} // namespace

void ContrastSample::show(const Colour& first, const Colour& second, std::string told) {
    const bool tellsOther = told != told_;
    first_ = first;
    second_ = second;
    told_ = std::move(told);
    setNeedsDisplay();
    if (tellsOther) announceChange();
}

void ContrastSample::drawRect(Canvas& canvas) {
    const Rect& b = bounds();
    const double middle = static_cast<double>(static_cast<int>(b.w / 2));
    drawHalf(canvas, {b.x, b.y, middle, b.h}, first_, second_, translated("First on second"));
    drawHalf(canvas, {b.x + middle, b.y, b.w - middle, b.h}, second_, first_, translated("Second on first"));
}

Accessible ContrastSample::accessible() const {
    Accessible told;
    told.name = name_;
    told.value = told_;
    return told;
}

} // namespace chromalog
