#pragma once

#include "base/colour.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace chromalog {

/// What came of a pick from the screen. Neither colours nor a problem: the person took it back.
struct ScreenColours {
    std::vector<Colour> colours; ///< opaque, in the order in which they were taken
    std::string problem;         ///< why none could be taken, as one line
};

/// Answers once. It may destroy the pick that it answers.
using ScreenAnswer = std::function<void(ScreenColours)>;

/// A pick from the screen that is under way. Destroying it takes it back, and nothing is answered any more.
class ScreenPick {
  public:
    virtual ~ScreenPick() = default;
};

} // namespace chromalog
