#include "base/colour.h"

#include <algorithm>

namespace chromalog {
namespace {

double unit(double v) {
    return v > 0 ? std::min(v, 1.0) : 0.0; // no number compares false and becomes 0
}

double hueOf(double r, double g, double b, double maximum, double minimum) {
    const double range = maximum - minimum;
    if (range == 0) return 0;
    double sextant = 0;
    if (r == maximum)
        sextant = (g - b) / range;
    else if (g == maximum)
        sextant = 2 + (b - r) / range;
    else
        sextant = 4 + (r - g) / range;
    const double hue = sextant / 6;
    return hue < 0 ? hue + 1 : hue;
}

} // namespace

Colour Colour::rgb(double red, double green, double blue, double alpha) {
    Colour c;
    c.red_ = unit(red);
    c.green_ = unit(green);
    c.blue_ = unit(blue);
    c.alpha_ = unit(alpha);
    return c;
}

Colour Colour::hsb(double hue, double saturation, double brightness, double alpha) {
    double h = unit(hue);
    if (h == 1.0) h = 0;
    const double s = unit(saturation);
    const double b = unit(brightness);
    const int i = static_cast<int>(6 * h);
    const double f = 6 * h - i;
    const double p = b * (1 - s);
    const double q = b * (1 - s * f);
    const double t = b * (1 - s * (1 - f));
    Colour c;
    switch (i) {
    case 0:
        c = rgb(b, t, p, alpha);
        break;
    case 1:
        c = rgb(q, b, p, alpha);
        break;
    case 2:
        c = rgb(p, b, t, alpha);
        break;
    case 3:
        c = rgb(p, q, b, alpha);
        break;
    case 4:
        c = rgb(t, p, b, alpha);
        break;
    default:
        c = rgb(b, p, q, alpha);
        break;
    }
    c.remembers_ = true;
    c.hue_ = h;
    c.saturation_ = s;
    return c;
}

double Colour::brightness() const {
    return std::max({red_, green_, blue_});
}

double Colour::saturation() const {
    if (remembers_) return saturation_;
    const double maximum = brightness();
    return maximum == 0 ? 0 : (maximum - std::min({red_, green_, blue_})) / maximum;
}

double Colour::hue() const {
    if (remembers_) return hue_;
    return hueOf(red_, green_, blue_, brightness(), std::min({red_, green_, blue_}));
}

Colour Colour::withAlpha(double alpha) const {
    Colour c = *this;
    c.alpha_ = unit(alpha);
    return c;
}

} // namespace chromalog
