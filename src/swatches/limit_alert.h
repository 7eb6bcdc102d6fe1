#pragma once

#include "desktop/panels.h"

#include <string>

namespace chromalog {

/// Said where a list would come to its capacity or past it; `total` is the count that it would have.
inline Alert limitAlert(int total) {
    return {"A Swatch list has a maximum of 5000 colors. ", std::to_string(total) + " colors in list ", "ok"};
}

} // namespace chromalog
