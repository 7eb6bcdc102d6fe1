#include "spaces/srgb.h"

namespace chromalog {

double decodeSrgb(double encoded) {
    const double v = std::abs(encoded);
    return std::copysign(v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4), encoded);
}

double encodeSrgb(double linear) {
    const double v = std::abs(linear);
    return std::copysign(v <= 0.0031308 ? v * 12.92 : 1.055 * std::pow(v, 1 / 2.4) - 0.055, linear);
}

LinearRgb linearRgbOf(const Rgb& rgb) {
    return {decodeSrgb(rgb.red), decodeSrgb(rgb.green), decodeSrgb(rgb.blue)};
}

Rgb rgbOf(const LinearRgb& linear) {
    return {encodeSrgb(linear.red), encodeSrgb(linear.green), encodeSrgb(linear.blue)};
}

} // namespace chromalog
