#pragma once

#include "desktop/view.h"

#include <optional>

namespace chromalog {

/// A move by arrow key: one step, with Shift ten.
struct Step {
    int right = 0;
    int up = 0;
};

inline std::optional<Step> arrowStep(const KeyEvent& event) {
    const int length = event.shift ? 10 : 1;
    switch (event.key) {
    case Key::left:
        return Step{-length, 0};
    case Key::right:
        return Step{length, 0};
    case Key::up:
        return Step{0, length};
    case Key::down:
        return Step{0, -length};
    default:
        return std::nullopt;
    }
}

} // namespace chromalog
