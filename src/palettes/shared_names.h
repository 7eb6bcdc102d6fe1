#pragma once

#include "base/translated.h"
#include "palettes/palette.h"

namespace chromalog {

/// Every colour holds the names that it shares with others, as its group's: a small file could ask for more
/// memory than there is.
class SharedNames {
  public:
    /// Before a colour gets so many bytes of them; throws PaletteError where a file asks for too many.
    void take(std::size_t bytes) {
        taken_ += bytes;
        if (taken_ > kMost) throw PaletteError(translated("the names that its colors share are too long"));
    }

  private:
    static constexpr std::size_t kMost = 64U << 20;
    std::size_t taken_ = 0;
};

} // namespace chromalog
