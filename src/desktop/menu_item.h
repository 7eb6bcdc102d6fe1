#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace chromalog {

/// An item of a menu that is made when it opens. One without a title is a line between two groups.
struct MenuItem {
    std::string title;         ///< UTF-8, plain
    std::string action;        ///< the operation's name for scripts, with its colon
    std::function<void()> run; ///< of an item without items of its own
    bool enabled = true;
    std::optional<bool> checked{}; ///< one of several choices: whether it is the chosen one
    std::vector<MenuItem> items{}; ///< of the menu that it opens
    bool alone = false;            ///< checked or not by itself: no choice among several
};

using MenuItems = std::vector<MenuItem>;

} // namespace chromalog
