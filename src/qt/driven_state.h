#pragma once

#include "base/colour.h"
#include "base/geometry.h"
#include "base/print_info.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace chromalog {

/// What the dialog holds, as plain values; docs/driving.md says what each means. Angles and components as
/// they are held, texts in UTF-8.
struct DrivenColours {
    Colour first, second;
    float luminosity = 0, alpha1 = 0, alpha2 = 0;
    int harmonyMode = 0;
};

struct DrivenWheel {
    Size size;
    Point selected, opposite, balance1, balance2, equi1, equi2, quadri1, quadri2;
};

struct DrivenChart {
    std::optional<Colour> selected;
    bool printing = false;
};

struct DrivenCorners {
    Colour UL, UR, LL, LR;
};

struct DrivenSwatch {
    std::vector<std::uint8_t> name; ///< the characters, as far as the field reaches
    int nameLength = 0;             ///< as the record says
    std::int64_t red = 0, green = 0, blue = 0;
};

struct DrivenHit {
    std::int64_t position = 0;
    double scrollValue = 0;
};

struct DrivenList {
    int viewCount = 0, storedCount = 0, selected = 0, start = 0;
    std::string viewName;
    std::vector<std::uint8_t> storedName; ///< the characters
    double scroller = 0, scrollY = 0, contentHeight = 0;
    std::vector<int> selectedRows; ///< together; empty where the selected one stands alone
    std::vector<DrivenHit> hits;
    std::int64_t lastShown = 0;
    int direction = 0;
    std::vector<DrivenSwatch> records; ///< those that the view shows
};

struct DrivenHistory {
    int useSecondColor = 0, undoLimit = 0, undoSteps = 0, undoStepsAtMost = 0;
    bool keepsSteps = false; ///< where it does not, there are no names
    std::vector<std::string> undoNames, redoNames;
};

struct DrivenPrint {
    int size = 0, name = 0, rgb = 0, cmyk = 0;
    PrintInfo info;
};

struct DrivenPasteboard {
    bool colourType = false, textType = false; ///< declared, perhaps without readable content
    std::optional<Colour> colour;
    std::optional<std::string> text;
};

struct DrivenDrag {
    DrivenPasteboard pasteboard;
    Size imageSize;
    bool taken = false;
};

struct DrivenPanel {
    std::string kind, parent;
    std::vector<std::string> types;
};

struct DrivenAlert {
    std::string message, informative, button;
};

struct DrivenHost {
    int sourceSpace = 0, resultSpace = 0;
    std::vector<int> components;
};

struct DrivenState {
    DrivenColours colours;
    DrivenWheel wheel;
    DrivenChart gradient, tone;
    DrivenCorners corners;
    std::vector<DrivenList> lists;
    DrivenHistory history;
    DrivenPrint print;
    DrivenPasteboard pasteboard;
    std::optional<DrivenDrag> lastDrag;
    std::vector<DrivenPanel> panels;
    std::vector<DrivenAlert> alerts;
    std::vector<std::string> sounds, log;
    std::string status;
    DrivenHost host;
};

} // namespace chromalog
