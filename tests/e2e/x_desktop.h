#pragma once

#include "e2e/x_server.h"
#include "support/started_program.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace chromalog::test {

/// An X server with a window manager, and a person in front of it: eyes for windows and pixels, hands on
/// pointer and keys.
class XDesktop {
  public:
    using Window = unsigned long;
    struct Box {
        int x, y, w, h; ///< pixels of the screen
    };
    /// In view past the manager.
    struct Popup {
        Box place;
        bool isTip; ///< a tool tip, or the picture of what is dragged; else a menu
    };

    /// `folder` takes the window manager's settings; `screen` as the server takes it.
    explicit XDesktop(const std::string& folder, const char* screen = "1800x1000x24");
    ~XDesktop();

    bool runs() const { return eyes_ != nullptr; } ///< false where something for it is not installed
    const std::string& display() const { return server_.display(); }

    // Eyes.
    Window active() const;           ///< that has the keyboard by the manager's word; 0 is none
    std::string title(Window) const; ///< empty where there is no such window
    std::vector<Popup> popups() const;
    std::optional<Box> place(Window) const;  ///< without the manager's frame; nothing where it is not shown
    Box frame(Window) const;                 ///< with it
    std::uint32_t pixel(int x, int y) const; ///< 0xrrggbb

    /// What a person does, in words of xdotool.
    void hands(const std::vector<std::string>& words) const;

  private:
    struct Eyes;
    bool manages() const; ///< whether the manager has taken the screen over

    XServer server_;
    std::optional<StartedProgram> manager_;
    std::unique_ptr<Eyes> eyes_;
};

} // namespace chromalog::test
