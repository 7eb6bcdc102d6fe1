#pragma once

#include "base/colour.h"
#include "base/geometry.h"
#include "desktop/picture_reading.h"

#include <functional>
#include <optional>
#include <string>

namespace chromalog {

/// What a drag or the general pasteboard carries. A declared type may lack readable content (foreign data).
struct Pasteboard {
    bool colourType = false; ///< the colour type is declared
    bool textType = false;   ///< the plain text type is declared
    std::optional<Colour> colour;
    std::optional<std::string> text; ///< UTF-8
    std::string name{};              ///< of the colour, within this process: no other program is told
    /// Fetches the picture, or the file that may be one, at once: it can be large. Empty: there is none.
    std::function<PictureSource()> picture{};
};

/// Something that drags start from. Compared by address, never asked for anything.
class DragSource {
  public:
    virtual ~DragSource() = default;
};

enum class DragOperation { none = 0, copy = 1 };

/// A drag over a target, as the target sees it.
struct DragInfo {
    Point location;                     ///< in the target view's coordinates
    const DragSource* source = nullptr; ///< null: another program, or something that is no target's business
    bool sourceAllows = true;           ///< the source's operation mask is not zero
    Pasteboard pasteboard;
};

/// The picture under the pointer: a filled rectangle, framed in black where asked.
struct DragImage {
    Size size;
    Colour fill;
    bool blackFrame = false;
    Point origin; ///< lower left corner of the picture, in the source view's coordinates
};

struct DragRequest {
    const DragSource* source = nullptr;
    DragImage image;
    Pasteboard pasteboard;
};

} // namespace chromalog
