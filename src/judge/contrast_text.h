#pragma once

#include "spaces/contrast.h"

#include <string>

namespace chromalog {

/// "4.49:1": two decimals, rounded down, so that what reads as 4.50 passes where 4.5 is asked for.
std::string ratioText(double ratio);

/// "AAA", "AA" or "below AA".
std::string levelText(double ratio, TextSize);

} // namespace chromalog
