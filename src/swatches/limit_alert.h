#pragma once

#include "base/translated.h"
#include "desktop/panels.h"

#include <string>

namespace chromalog {

/// Said where a list would come to its capacity or past it; `total` is the count that it would have.
inline Alert limitAlert(int total) {
    return {translated("A Swatch list has a maximum of 5000 colors. "),
            translated("%1 colors in list ", total), translated("ok")};
}

} // namespace chromalog
