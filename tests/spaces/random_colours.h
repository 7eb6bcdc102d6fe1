#pragma once

#include "spaces/rgb.h"

#include <random>

namespace chromalog {

/// The same colours in every run and with every library.
class RandomColours {
  public:
    explicit RandomColours(unsigned seed) : generator_(seed) {}

    double number(double low, double high) { return low + (high - low) * (generator_() / 4294967296.0); }
    unsigned below(unsigned count) { return generator_() % count; }
    Rgb rgb() {
        const double red = number(0, 1), green = number(0, 1);
        return {red, green, number(0, 1)};
    }

  private:
    std::mt19937 generator_;
};

} // namespace chromalog
