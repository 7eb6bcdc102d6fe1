#include "judge/gamut_outline.h"

#include "base/colour.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace chromalog {
namespace {

constexpr int kSteps = 255;

HostGamut::Bytes bytesAt(int level, int ray, int step) {
    const Colour c = Colour::hsb(static_cast<double>(ray) / GamutOutline::kRays,
                                 static_cast<double>(step) / kSteps, level / 255.0);
    const std::uint32_t bytes = bytesOf(rgbOf(c));
    return {static_cast<int>(bytes >> 16), static_cast<int>(bytes >> 8 & 0xFF),
            static_cast<int>(bytes & 0xFF)};
}

} // namespace

int GamutOutline::levelOf(float brightness) {
    return brightness > 0 ? static_cast<int>(std::lround(std::min(brightness, 1.0F) * 255)) : 0;
}

const GamutOutline::Rays* GamutOutline::at(int level) const {
    const auto found = done_.find(level);
    return found == done_.end() ? nullptr : &found->second;
}

void GamutOutline::forget() {
    done_.clear();
    level_ = -1;
}

bool GamutOutline::search(int level, double seconds) {
    using Clock = std::chrono::steady_clock;
    if (at(level)) return true;
    if (level_ != level) {
        now_ = {true, {}};
        level_ = level;
        ray_ = 0;
    }
    const auto end = Clock::now() + std::chrono::duration<double>(seconds);
    while (ray_ < kRays && now_.known) {
        now_.known = searchRay(level, ray_++);
        if (Clock::now() >= end && now_.known && ray_ < kRays) return false;
    }
    done_[level] = now_;
    level_ = -1;
    return true;
}

/// False where the host fails.
bool GamutOutline::searchRay(int level, int ray) {
    const auto printableAt = [&](int step) { return host_.printable(bytesAt(level, ray, step)); };
    const auto whole = printableAt(kSteps), grey = printableAt(0);
    if (!whole || !grey) return false;
    int in = *whole ? kSteps : 0, out = *whole || !*grey ? in : kSteps;
    while (out - in > 1) {
        const int middle = (in + out) / 2;
        const auto printable = printableAt(middle);
        if (!printable) return false;
        (*printable ? in : out) = middle;
    }
    now_.saturation[static_cast<std::size_t>(ray)] = static_cast<float>(in) / kSteps;
    return true;
}

} // namespace chromalog
