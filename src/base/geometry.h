#pragma once

namespace chromalog {

/// Lengths are points: logical pixels on a screen, 1/72 inch on paper.
struct Point {
    double x = 0;
    double y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
    double w = 0;
    double h = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

struct Rect {
    double x = 0;
    double y = 0;
    double w = 0;
    double h = 0;
    friend bool operator==(const Rect&, const Rect&) = default;
};

} // namespace chromalog
