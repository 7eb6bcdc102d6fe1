#include "judge/host_gamut.h"

#include "spaces/ciede2000.h"

#include <algorithm>
#include <cstdint>

namespace chromalog {
namespace {

constexpr double kMostDifference = 2;

using Slots = std::array<std::int16_t, 4>;

bool convert(ColorServicesProc services, std::int16_t from, std::int16_t to, Slots& slots,
             std::optional<bool>& inGamut) {
    if (HostCSConvertColor(services, from, to, slots.data(), inGamut) != 0) return false;
    for (std::int16_t& slot : slots)
        slot = std::clamp<std::int16_t>(slot, 0, 255);
    return true;
}

bool toInks(ColorServicesProc services, Slots& slots, std::optional<bool>& inGamut) {
    return convert(services, plugIncolorServicesRGBSpace, plugIncolorServicesCMYKSpace, slots, inGamut);
}

bool toRgb(ColorServicesProc services, Slots& slots) {
    std::optional<bool> ofNoInterest;
    return convert(services, plugIncolorServicesCMYKSpace, plugIncolorServicesRGBSpace, slots, ofNoInterest);
}

Slots slotsOf(const HostGamut::Bytes& rgb) {
    return {static_cast<std::int16_t>(rgb[0]), static_cast<std::int16_t>(rgb[1]),
            static_cast<std::int16_t>(rgb[2]), 0};
}

Lab labOfBytes(int red, int green, int blue) {
    return labOf(Rgb{red / 255.0, green / 255.0, blue / 255.0});
}

double differenceOf(const HostGamut::Bytes& rgb, const Slots& back) {
    if (rgb[0] == back[0] && rgb[1] == back[1] && rgb[2] == back[2]) return 0;
    return ciede2000(labOfBytes(rgb[0], rgb[1], rgb[2]), labOfBytes(back[0], back[1], back[2]));
}

} // namespace

std::optional<HostGamut::Verdict> HostGamut::judge(const Bytes& rgb) const {
    Slots slots = slotsOf(rgb);
    std::optional<bool> inGamut;
    if (!toInks(services_, slots, inGamut) || !toRgb(services_, slots)) return std::nullopt;
    const double difference = differenceOf(rgb, slots);
    return Verdict{
        inGamut.value_or(difference <= kMostDifference), {slots[0], slots[1], slots[2]}, difference};
}

std::optional<bool> HostGamut::printable(const Bytes& rgb) const {
    Slots slots = slotsOf(rgb);
    std::optional<bool> inGamut;
    if (!toInks(services_, slots, inGamut)) return std::nullopt;
    if (inGamut) return inGamut;
    if (!toRgb(services_, slots)) return std::nullopt;
    return differenceOf(rgb, slots) <= kMostDifference;
}

} // namespace chromalog
