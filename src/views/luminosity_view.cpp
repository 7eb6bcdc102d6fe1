#include "views/luminosity_view.h"

#include "base/colour_text.h"
#include "base/translated.h"
#include "views/arrow_keys.h"
#include "views/marks.h"

#include <algorithm>
#include <cmath>

namespace chromalog {
namespace {

constexpr int cells = 100;
constexpr double leastMark = 2; ///< points of white

float levelOf(int cell) {
    return static_cast<float>(cell) / (cells - 1);
}

/// The band is narrower than the spacing of the levels: some brightnesses mark no cell. Kept.
bool isMarked(int cell, float brightness) {
    const float v = levelOf(cell);
    return brightness > v && v + 0.01 > brightness;
}

} // namespace

void luminosityView::drawRect(Canvas& canvas) {
    const Colour second = colours_.getSecondColor();
    const auto hue = static_cast<float>(second.hue());
    const auto saturation = static_cast<float>(second.saturation());
    const auto brightness = static_cast<float>(second.brightness());
    Rect cell = bounds();
    cell.h /= cells;
    const float step = static_cast<float>(cell.h);
    for (int i = 0; i < cells; ++i, cell.y += step) {
        const bool marked = isMarked(i, brightness);
        const Colour fill = marked ? Colour::rgb(1, 1, 1) : Colour::hsb(hue, saturation, levelOf(i));
        canvas.setFill(fill);
        canvas.fillRect(cell);
        canvas.setFill(marked ? Colour() : fill);
        canvas.frameRect(cell, 1);
    }
}

/// In a low strip the mark's own frame leaves nothing of its white.
void luminosityView::drawDisplayLayer(Canvas& canvas) {
    const auto brightness = static_cast<float>(colours_.getSecondColor().brightness());
    for (int i = 0; i < cells; ++i) {
        if (!isMarked(i, brightness)) continue;
        const Rect b = bounds();
        const double pitch = b.h / cells, middle = b.y + (i + 0.5) * pitch;
        const double white = std::max(leastMark, pitch - 2);
        canvas.setFill(haloColour());
        canvas.fillRect({b.x, middle - white / 2 - kHaloMargin, b.w, white + 2 * kHaloMargin});
        canvas.setFill(Colour::rgb(1, 1, 1));
        canvas.fillRect({b.x, middle - white / 2, b.w, white});
    }
}

void luminosityView::setCursorWithColor(const Colour&) {
    setNeedsDisplay();
    announceChange();
}

void luminosityView::pick(Point p) {
    if (bounds().h > 0) setBrightness(static_cast<float>(p.y / bounds().h));
}

void luminosityView::setBrightness(float brightness) {
    setNeedsDisplay();
    colours_.moveLuminosity(brightness);
    announceChange();
}

double luminosityView::percent() const {
    return std::round(colours_.getSecondColor().brightness() * 100);
}

bool luminosityView::keyDown(const KeyEvent& event) {
    if (const auto step = arrowStep(event))
        setAccessibleValue(percent() + step->right + step->up);
    else if (event.key == Key::pageUp)
        setAccessibleValue(percent() + 10);
    else if (event.key == Key::pageDown)
        setAccessibleValue(percent() - 10);
    else if (event.key == Key::home)
        setAccessibleValue(0);
    else if (event.key == Key::end)
        setAccessibleValue(100);
    else
        return false;
    return true;
}

void luminosityView::setAccessibleValue(double percent) {
    setBrightness(static_cast<float>(std::clamp(percent, 0.0, 100.0) / 100));
}

Accessible luminosityView::accessible() const {
    Accessible a;
    a.role = Accessible::Role::slider;
    a.name = translated("Luminosity");
    a.value = spokenText(colours_.getSecondColor());
    a.description =
        translated("Brightness of the second color in percent. Arrow keys change it by 1, with Shift by "
                   "10; the page keys by 10, Home and End go to its ends.");
    a.range = {percent(), 0, 100, 1};
    return a;
}

} // namespace chromalog
