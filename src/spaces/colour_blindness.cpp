#include "spaces/colour_blindness.h"

#include "spaces/gamut.h"
#include "spaces/matrix3.h"

namespace chromalog {
namespace {

constexpr Matrix3 kProtanopia{
    {{{0.152286, 1.052583, -0.204868}, {0.114503, 0.786281, 0.099216}, {-0.003882, -0.048116, 1.051998}}}};
constexpr Matrix3 kDeuteranopia{
    {{{0.367322, 0.860646, -0.227968}, {0.280085, 0.672501, 0.047413}, {-0.011820, 0.042940, 0.968881}}}};
constexpr Matrix3 kTritanopia{
    {{{1.255528, -0.076749, -0.178779}, {-0.078411, 0.930809, 0.147602}, {0.004733, 0.691367, 0.303900}}}};

const Matrix3& matrixOf(ColourBlindness blindness) {
    switch (blindness) {
    case ColourBlindness::protanopia:
        return kProtanopia;
    case ColourBlindness::deuteranopia:
        return kDeuteranopia;
    case ColourBlindness::tritanopia:
        break;
    }
    return kTritanopia;
}

} // namespace

Rgb seenWith(ColourBlindness blindness, const Rgb& rgb) {
    const LinearRgb linear = linearRgbOf(rgb);
    const auto [red, green, blue] = matrixOf(blindness) * Vector3{linear.red, linear.green, linear.blue};
    return clippedToSrgb(rgbOf(LinearRgb{red, green, blue}));
}

} // namespace chromalog
