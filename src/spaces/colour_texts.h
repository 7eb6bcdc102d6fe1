#pragma once

#include "spaces/css_colour.h"

#include <string>
#include <vector>

namespace chromalog {

struct NamedColour {
    std::string name; ///< UTF-8 as pasted, one line, any length; empty where the text gives none
    ReadColour colour;
};

/// The colours of a pasted text, in its order, at most `limit` of them. Line by line, each of
///   names before or after their colours (`Sky: #87ceeb`, `#87ceeb Sky`, `- Sky rgb(135 206 235)`)
///   CSS declarations and custom properties, JSON and JavaScript members (the property is the name)
///   lists by comma or white space (`#f00, #0f0, blue`); a colour's own word is its name there
/// Words of prose are no colours, and a text without any gives nothing. Any bytes are taken; time grows with
/// the length alone. Of a line the first megabyte is read.
std::vector<NamedColour> readColourTexts(std::string_view text, std::size_t limit);

} // namespace chromalog
