#pragma once

#include "judge/host_gamut.h"

#include <array>
#include <map>

namespace chromalog {

/// Up to which saturation colours of one brightness can be printed, in 180 directions of hue: found by
/// bisection in steps of 1/255, which is what the host's 8 bits tell apart. A brightness that was searched
/// is remembered.
class GamutOutline {
  public:
    static constexpr int kRays = 180;
    /// Ray i is at hue i / 180. 1 where everything can be printed, 0 where the grey cannot. Empty of
    /// saturations where the host has failed.
    struct Rays {
        bool known = false;
        std::array<float, kRays> saturation{};
    };

    explicit GamutOutline(ColorServicesProc services) : host_(services) {}

    /// The level of a brightness: 0..255.
    static int levelOf(float brightness);
    const Rays* at(int level) const; ///< null while it has not been searched to its end

    /// Begins or goes on with a level for about that long; true when it is done.
    bool search(int level, double seconds);
    void forget();

  private:
    bool searchRay(int level, int ray);

    const HostGamut host_;
    std::map<int, Rays> done_;
    Rays now_;
    int level_ = -1, ray_ = 0; ///< of the search under way
};

} // namespace chromalog
