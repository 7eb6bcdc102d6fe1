#pragma once

#include "base/colour.h"
#include "desktop/menu_item.h"

#include <optional>
#include <string>

namespace chromalog {

/// A colour that stands somewhere in the dialog: in a well, under the pointer on a chart, in a row.
struct ColourPlace {
    std::string outlet;           ///< of the control or view that shows it
    std::optional<Colour> colour; ///< none: the control stands for several, or for none
};

/// What a person can do with the colours that stand in the dialog, wherever they stand.
class ColourOperations {
  public:
    virtual ~ColourOperations() = default;
    /// Whether the outlet stands for colours without showing one itself, as a harmony's button does.
    virtual bool standsForColours(const std::string& outlet) const = 0;
    virtual MenuItems menuOf(const ColourPlace&) = 0;   ///< asked whenever a person opens it
    virtual void copy(const ColourPlace&) = 0;          ///< its hex as text, and the colour itself
    virtual bool paste(const ColourPlace&) = 0;         ///< false where the outlet takes no colour
    virtual void add(const ColourPlace&, int list) = 0; ///< to list 1 or 2
};

} // namespace chromalog
