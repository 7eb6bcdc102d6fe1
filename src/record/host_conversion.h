#pragma once

#include "abi/color_services.h"

#include <cstdint>
#include <optional>

namespace chromalog {

/// Result codes of the conversion layer; any other code is the host's own.
inline constexpr std::int16_t kHostInsufficient = -30900; ///< the host offers no colour services
inline constexpr std::int16_t kBadParameter = -1715;      ///< a null pointer

bool HostColorServicesAvailable(ColorServicesProc callback);
/// Fills a fresh argument block: convert, source space 0, result space -1, components and reserved pointers
/// cleared.
std::int16_t CSInitInfo(ColorServicesInfo* info);
std::int16_t CSSetColor(std::int16_t* components, std::int16_t c0, std::int16_t c1, std::int16_t c2,
                        std::int16_t c3);
std::int16_t CSCopyColor(std::int16_t* to, const std::int16_t* from);

/// Converts four components in place: 8-bit values in 16-bit slots (hue 0..359, CMYK with 255 = no ink).
/// On any error they stay as they were; callers go on with the values that they then hold.
std::int16_t HostCSConvertColor(ColorServicesProc callback, std::int16_t sourceSpace,
                                std::int16_t resultSpace, std::int16_t* components);
/// The same; tells in `inGamut` whether the host says that the result can be printed, where it says anything.
std::int16_t HostCSConvertColor(ColorServicesProc callback, std::int16_t sourceSpace,
                                std::int16_t resultSpace, std::int16_t* components,
                                std::optional<bool>& inGamut);

} // namespace chromalog
