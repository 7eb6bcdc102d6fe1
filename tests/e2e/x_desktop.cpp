#include "e2e/x_desktop.h"

#include "support/run_program.h"

#include <gtest/gtest.h> // before the window system, which takes the words None and Bool

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <thread>

namespace chromalog::test {

namespace {

/// A click on the close box closes, the frame's corner resizes, a new window gets the keyboard; no key is
/// the manager's.
constexpr const char* kSettings = R"(<?xml version="1.0"?>
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew><focusLast>yes</focusLast></focus>
  <theme><titleLayout>LC</titleLayout></theme>
  <desktops><number>1</number></desktops>
  <keyboard></keyboard>
  <mouse>
    <dragThreshold>1</dragThreshold>
    <context name="Close"><mousebind button="Left" action="Click"><action name="Close"/></mousebind></context>
    <context name="BRCorner"><mousebind button="Left" action="Drag"><action name="Resize"/></mousebind></context>
  </mouse>
</openbox_config>
)";

bool installed(const std::string& program) {
    return runProgram({"sh", "-c", "command -v " + program}).exitCode == 0;
}

/// A window may go while it is looked at.
int ignoreErrors(Display*, XErrorEvent*) {
    return 0;
}

} // namespace

struct XDesktop::Eyes {
    Display* display;

    explicit Eyes(const std::string& name) : display(XOpenDisplay(name.c_str())) {
        XSetErrorHandler(ignoreErrors);
    }
    ~Eyes() {
        if (display) XCloseDisplay(display);
    }
    ::Window root() const { return DefaultRootWindow(display); }

    /// The bytes of a property, or the longs as the library gives them.
    std::string property(::Window window, const char* name) const {
        Atom type = 0;
        int bits = 0;
        unsigned long count = 0, left = 0;
        unsigned char* data = nullptr;
        XGetWindowProperty(display, window, XInternAtom(display, name, False), 0, 1024, False,
                           AnyPropertyType, &type, &bits, &count, &left, &data);
        if (!data) return {};
        const std::size_t each = bits == 32 ? sizeof(long) : static_cast<std::size_t>(bits) / 8;
        std::string bytes(reinterpret_cast<const char*>(data), count * each);
        XFree(data);
        return bytes;
    }
    std::vector<long> longs(::Window window, const char* name) const {
        const std::string bytes = property(window, name);
        std::vector<long> all(bytes.size() / sizeof(long));
        bytes.copy(reinterpret_cast<char*>(all.data()), all.size() * sizeof(long));
        return all;
    }
};

XDesktop::XDesktop(const std::string& folder, const char* screen)
    : server_(XServer::WhenAlone::stays, screen) {
    if (!server_.runs() || !installed("xdotool") || !installed("openbox")) return;
    const std::string settings = folder + "/openbox.xml";
    std::ofstream(settings) << kSettings;
    auto eyes = std::make_unique<Eyes>(display());
    if (!eyes->display) return;
    eyes_ = std::move(eyes);
    manager_.emplace(std::vector<std::string>{"openbox", "--config-file", settings},
                     std::map<std::string, std::string>{{"DISPLAY", display()}, {"HOME", folder}});
    while (!manages()) {
        if (!manager_->runs()) {
            ADD_FAILURE() << "the window manager has ended";
            return;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

/// The eyes close before the server goes.
XDesktop::~XDesktop() {
    eyes_.reset();
}

bool XDesktop::manages() const {
    return !eyes_->longs(eyes_->root(), "_NET_SUPPORTING_WM_CHECK").empty();
}

XDesktop::Window XDesktop::active() const {
    const auto windows = eyes_->longs(eyes_->root(), "_NET_ACTIVE_WINDOW");
    return windows.empty() ? 0 : static_cast<Window>(windows[0]);
}

std::string XDesktop::title(Window window) const {
    return window == 0 ? "" : eyes_->property(window, "_NET_WM_NAME");
}

std::vector<XDesktop::Popup> XDesktop::popups() const {
    ::Window root = 0, parent = 0, *children = nullptr;
    unsigned int count = 0;
    std::vector<Popup> shown;
    if (!XQueryTree(eyes_->display, eyes_->root(), &root, &parent, &children, &count)) return shown;
    const auto tip = static_cast<long>(XInternAtom(eyes_->display, "_NET_WM_WINDOW_TYPE_TOOLTIP", False));
    for (unsigned int i = 0; i < count; ++i) {
        XWindowAttributes is{};
        if (!XGetWindowAttributes(eyes_->display, children[i], &is)) continue;
        const auto types = eyes_->longs(children[i], "_NET_WM_WINDOW_TYPE"); // the manager's own have none
        if (is.override_redirect && is.map_state == IsViewable && !types.empty())
            shown.push_back({{is.x, is.y, is.width, is.height}, std::ranges::count(types, tip) > 0});
    }
    if (children) XFree(children);
    return shown;
}

std::optional<XDesktop::Box> XDesktop::place(Window window) const {
    XWindowAttributes is{};
    if (!XGetWindowAttributes(eyes_->display, window, &is) || is.map_state != IsViewable) return {};
    ::Window child = 0;
    int x = 0, y = 0;
    if (!XTranslateCoordinates(eyes_->display, window, eyes_->root(), 0, 0, &x, &y, &child)) return {};
    return Box{x, y, is.width, is.height};
}

XDesktop::Box XDesktop::frame(Window window) const {
    const Box inner = place(window).value_or(Box{});
    auto sides = eyes_->longs(window, "_NET_FRAME_EXTENTS"); // left, right, top, bottom
    sides.resize(4);
    const auto side = [&](std::size_t i) { return static_cast<int>(sides[i]); };
    return {inner.x - side(0), inner.y - side(2), inner.w + side(0) + side(1), inner.h + side(2) + side(3)};
}

std::uint32_t XDesktop::pixel(int x, int y) const {
    XImage* image = XGetImage(eyes_->display, eyes_->root(), x, y, 1, 1, AllPlanes, ZPixmap);
    if (!image) return 0;
    const auto value = static_cast<std::uint32_t>(XGetPixel(image, 0, 0)) & 0xFFFFFF;
    XDestroyImage(image);
    return value;
}

void XDesktop::hands(const std::vector<std::string>& words) const {
    std::vector<std::string> command{"xdotool"};
    command.insert(command.end(), words.begin(), words.end());
    const auto result = runProgram(command, {{"DISPLAY", display()}});
    EXPECT_EQ(result.exitCode, 0) << result.err;
}

} // namespace chromalog::test
