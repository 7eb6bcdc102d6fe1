#pragma once

#include "e2e/driven_pick.h"
#include "e2e/x_desktop.h"

#include <functional>
#include <optional>

namespace chromalog::test {

/// One whole pick of a person: the program on a real X server under a window manager, used by real mouse and
/// keys, up to the colour that it prints or the file that it leaves. Nothing waits for a time: events arrive
/// in order, and what opens or closes is waited for.
class Story : public DrivenPick {
  protected:
    explicit Story(const char* screen = "1800x1000x24") : desktop_(folder_.path(), screen) {}
    void SetUp() override; ///< writes three.aco: Red, Green, Blue

    /// Plays a script without a screen first, which leaves its lists behind, and notes where the controls
    /// stand in a window of that size, and in the panel that it leaves open.
    void prepare(const std::string& script = "", int width = 0, int height = 0);
    void startWith(const std::string& name, int list = 1); ///< prepares with that file in a list

    /// Starts the program, which offers #3366cc, and waits until the dialog has the keyboard.
    void open(std::vector<std::string> options = {});

    struct At {
        std::string outlet;
        int x = -1, y = -1;   ///< points from the control's top left; its middle where left out
        bool inPanel = false; ///< in the window that has the keyboard, not in the dialog
    };
    static At panel(const std::string& outlet) { return {outlet, -1, -1, true}; }
    /// The middle of a row.
    static At row(int list, int index) { return {"swatch" + std::to_string(list), 60, 22 * index + 13}; }
    XDesktop::Box onScreen(const At&) const; ///< the point, in pixels of the screen; no size
    void click(const At&, const char* button = "1");
    void drag(const At& from, const At& to);  ///< a colour, by drag and drop
    void sweep(const At& from, const At& to); ///< with the button held
    void keys(const std::string& names);      ///< of xdotool, a blank between two
    void tabTo(const std::string& outlet);    ///< from where the last call ended; the first field at first
    void type(const std::string& text);

    void waitForWindow(const std::string& title); ///< with the keyboard
    void choose(int item, int of);                ///< of the menu that is open: its items are of one height
    void choose(const std::string& menu, const std::string& item); ///< by their names in the form
    /// Opens the control's context menu and takes its item by keys: the first is 1, lines do not count.
    void take(const At&, int item);
    bool menuIsOpen() const;
    void waitForColour(const At&, const std::string& hex); ///< shows on the screen
    std::string ended(); ///< what the program has printed, once it has ended by itself without complaint

    std::vector<std::string> swatches(int list); ///< that the pick has left, each as "NAME red green blue"
    static void until(const std::function<bool()>& holds, const std::string& what);

    XDesktop desktop_;
    XDesktop::Window dialog_ = 0;
    int scale_ = 1; ///< pixels a point
    std::map<std::string, std::vector<int>> frames_;

  private:
    bool showsDrag() const;
    std::vector<std::string> tabOrder(); ///< from the first field on
    std::size_t tabbed_ = 0;             ///< how far along it the focus is
    std::optional<StartedProgram> program_;
};

} // namespace chromalog::test
