#pragma once

#include "record/host_conversion.h"
#include "spaces/rgb.h"

#include <array>
#include <optional>

namespace chromalog {

/// What can be printed, as the host's colour services say: by their own word where they give it, else a
/// colour that comes back from RGB by CMYK with a difference of CIEDE2000 above 2 cannot. In their 8 bits;
/// whatever they answer is clamped to them.
class HostGamut {
  public:
    using Bytes = std::array<int, 3>; ///< red, green, blue, 0..255

    explicit HostGamut(ColorServicesProc services) : services_(services) {}
    bool available() const { return HostColorServicesAvailable(services_); }

    struct Verdict {
        bool printable;
        Bytes roundTrip;
        double difference; ///< CIEDE2000 between the colour and its round trip
    };
    /// Nothing where a call fails.
    std::optional<Verdict> judge(const Bytes&) const;
    std::optional<bool> printable(const Bytes&) const; ///< the same word, with one call where that suffices

  private:
    const ColorServicesProc services_;
};

} // namespace chromalog
