#pragma once

#include "abi/property_suite.h"

#include <cstdint>

namespace chromalog {

/// The host's version, packed (major << 16) | (minor << 8) | fix; 0 where the host does not tell.
std::int64_t hostVersion(const PropertyProcs*);

} // namespace chromalog
