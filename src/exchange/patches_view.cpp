#include "exchange/patches_view.h"

#include "base/translated.h"

#include <algorithm>
#include <cmath>

namespace chromalog {
namespace {

constexpr double kLargest = 24; // points

/// Edge of the squares, so that all of them have room.
double edgeOf(std::size_t count, double width, double height) {
    double edge =
        std::clamp(std::floor(std::sqrt(width * height / static_cast<double>(count))), 1.0, kLargest);
    const auto fits = [&](double size) {
        return std::floor(width / size) * std::floor(height / size) >= static_cast<double>(count);
    };
    while (edge > 1 && !fits(edge))
        --edge;
    return edge;
}

} // namespace

void PatchesView::setColours(std::vector<Colour> colours) {
    colours_ = std::move(colours);
    setNeedsDisplay();
    announceChange();
}

void PatchesView::drawRect(Canvas& canvas) {
    const double width = bounds().w, height = bounds().h;
    if (colours_.empty() || width < 1 || height < 1) return;
    const double edge = edgeOf(colours_.size(), width, height);
    const auto columns = static_cast<std::size_t>(std::max(1.0, std::floor(width / edge)));
    for (std::size_t i = 0; i < colours_.size(); ++i) {
        const std::size_t row = i / columns;
        const double y = edge * static_cast<double>(row);
        if (y >= height) break;
        canvas.setFill(colours_[i]);
        canvas.fillRect({edge * static_cast<double>(i % columns), y, edge, edge});
    }
}

Accessible PatchesView::accessible() const {
    Accessible told;
    told.name = translated("Colors of the palette");
    told.value = std::to_string(colours_.size());
    return told;
}

} // namespace chromalog
