#pragma once

#include "base/colour_text.h"
#include "base/geometry.h"

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace chromalog::drive {

enum class Verb {
    click,
    dclick,
    clickwith,
    rclick,
    press,
    drag,
    sweep,
    drop,
    dropfile,
    dropfiles,
    type,
    append,
    clip,
    key,
    set,
    menu,
    choose,
    answer,
    print,
    paper,
    wait,
    shot,
    picture,
    state,
    ok,
    cancel,
};

/// One command with its words checked: their number, and that numbers are numbers and colours colours.
/// Outlets and operations are looked up when the command runs.
struct Command {
    Verb verb = Verb::wait;
    int line = 0;                   ///< from 1
    std::vector<std::string> words; ///< without the command's own

    bool has(std::size_t index) const { return index < words.size(); }
    const std::string& text(std::size_t index) const { return words[index]; }
    double number(std::size_t index) const; ///< of a word that was checked to be one
    Point point(std::size_t index) const { return {number(index), number(index + 1)}; }
    WrittenColour colour(std::size_t index) const; ///< of a word that was checked to be one
};

/// What is wrong, and in which line.
struct ScriptError {
    int line = 0;
    std::string message;
};

using Script = std::vector<Command>;

/// Reads a whole script. The first line that is no command makes it an error.
std::variant<Script, ScriptError> readScript(std::string_view text);

/// Whether the command may run while an alert or a file panel is open.
bool allowedInPanels(Verb);

std::string_view nameOf(Verb);

} // namespace chromalog::drive
