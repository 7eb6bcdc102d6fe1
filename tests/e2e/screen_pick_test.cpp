// Colours from the screen, pixel for pixel: each pixel's colour tells its place.
#include "e2e/story.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <dlfcn.h>
#include <fcntl.h>
#include <memory>
#include <sstream>
#include <thread>
#include <unistd.h>

namespace chromalog::test {
namespace {

struct Place {
    int x, y;
};

std::uint32_t colourAt(Place at) {
    return static_cast<std::uint32_t>((at.x & 255) << 16 | (at.y & 255) << 8 | (at.x >> 8) * 16 | at.y >> 8);
}

std::string hexAt(Place at) {
    char text[8];
    std::snprintf(text, sizeof text, "#%06x", colourAt(at));
    return text;
}

/// Paints the ground of the screen.
class Painter {
  public:
    explicit Painter(const std::string& display) : display_(XOpenDisplay(display.c_str())) {}
    ~Painter() {
        if (display_) XCloseDisplay(display_);
    }
    Painter(const Painter&) = delete;
    Painter& operator=(const Painter&) = delete;

    void paint(int width, int height) {
        std::vector<std::uint32_t> pixels;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                pixels.push_back(colourAt({x, y}));
        XImage* image = XCreateImage(display_, DefaultVisual(display_, 0), 24, ZPixmap, 0,
                                     reinterpret_cast<char*>(pixels.data()), static_cast<unsigned>(width),
                                     static_cast<unsigned>(height), 32, 0);
        const Pixmap ground =
            XCreatePixmap(display_, root(), static_cast<unsigned>(width), static_cast<unsigned>(height), 24);
        XPutImage(display_, ground, DefaultGC(display_, 0), image, 0, 0, 0, 0, static_cast<unsigned>(width),
                  static_cast<unsigned>(height));
        XSetWindowBackgroundPixmap(display_, root(), ground); // shown anew where a window has gone
        XClearWindow(display_, root());
        XFreePixmap(display_, ground);
        image->data = nullptr;
        XDestroyImage(image);
        XSync(display_, False);
    }

    /// Whether another program has all keys for itself.
    bool keysAreTaken() {
        if (XGrabKeyboard(display_, root(), False, GrabModeAsync, GrabModeAsync, CurrentTime) != GrabSuccess)
            return true;
        XUngrabKeyboard(display_, CurrentTime);
        XSync(display_, False);
        return false;
    }

    /// Makes two screens of the one: the left part of that width, and the rest. False where the extension is
    /// missing.
    bool split(int left, int width, int height) {
        struct Monitor {
            Atom name;
            Bool primary, automatic;
            int outputs, x, y, width, height, mwidth, mheight;
            unsigned long* output;
        };
        struct Resources {
            Time time, configTime;
            int crtcs;
            unsigned long* crtc;
            int outputs;
            unsigned long* output;
        };
        void* library = dlopen("libXrandr.so.2", RTLD_NOW);
        if (!library) return false;
        const auto resources =
            reinterpret_cast<Resources* (*)(Display*, Window)>(dlsym(library, "XRRGetScreenResources"));
        const auto set =
            reinterpret_cast<void (*)(Display*, Window, Monitor*)>(dlsym(library, "XRRSetMonitor"));
        const auto free = reinterpret_cast<void (*)(Resources*)>(dlsym(library, "XRRFreeScreenResources"));
        if (!resources || !set || !free) return false;
        const std::unique_ptr<Resources, decltype(free)> has(resources(display_, root()), free);
        if (!has || has->outputs < 1) return false;
        Monitor one{atom("Left"), True, False, 1, 0, 0, left, height, left, height, has->output};
        Monitor two{atom("Right"), False,  False,        0,      left,   0,
                    width - left,  height, width - left, height, nullptr};
        set(display_, root(), &one);
        set(display_, root(), &two);
        XSync(display_, False);
        return true;
    }

  private:
    Window root() const { return DefaultRootWindow(display_); }
    Atom atom(const char* name) const { return XInternAtom(display_, name, False); }
    Display* display_;
};

class ScreenPick : public Story {
  protected:
    static constexpr int kWidth = 1802, kHeight = 1002;
    ScreenPick() : Story("1802x1002x24") {}

    void SetUp() override {
        Story::SetUp();
        if (IsSkipped()) return;
        environment_["QT_QPA_PLATFORM"] = "xcb";
        environment_["DBUS_SESSION_BUS_ADDRESS"] = "";
        painter_.emplace(desktop_.display());
        painter_->paint(kWidth, kHeight);
    }

    /// Starts `chromalog pick`, and waits until it has the keys.
    void begin(std::vector<std::string> options = {}) {
        options.insert(options.begin(), "pick");
        const int out = ::open(file("out").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        const int err = ::open(file("err").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        picking_.emplace(command(options), environment_, out, err);
        close(out);
        close(err);
    }
    /// Whether the screens hold still and the keys are the picker's.
    bool picks() {
        const auto popups = desktop_.popups();
        return std::ranges::any_of(popups, [](const auto& each) { return each.place.h == kHeight; }) &&
               painter_->keysAreTaken();
    }
    void waitForPicker() {
        until([this] { return picks() || (picking_ && !picking_->runs()); }, "the picker");
    }
    int end() {
        const int code = picking_->wait();
        EXPECT_EQ(read("err"), "");
        return code;
    }
    void hands(const std::string& words) const {
        std::istringstream in(words);
        desktop_.hands({std::istream_iterator<std::string>(in), {}});
    }
    static std::string to(Place at) {
        return " mousemove " + std::to_string(at.x) + " " + std::to_string(at.y);
    }

    std::optional<Painter> painter_;
    std::optional<StartedProgram> picking_;
};

TEST_F(ScreenPick, TakesColoursIntoTheDialogByTwoActions) {
    open();
    const Place one{8, 990}, two{20, 991}, three{1790, 4};
    click({"pickFromScreen"});
    waitForPicker();
    hands(to(one) + " click 1");
    waitForColour({"origSecondColor"}, hexAt(one));
    keys("ctrl+i");
    waitForPicker();
    hands(to(two) + " keydown shift click 1" + to(three) + " click 1 keyup shift key Escape");
    until([this] { return desktop_.popups().empty(); }, "the end of a pick");
    EXPECT_EQ(desktop_.active(), dialog_);
    keys("ctrl+i");
    waitForPicker();
    hands(to(two) + " keydown shift click 1" + to(three) + " click 1 keyup shift click 1");
    waitForColour({"origSecondColor"}, hexAt(three));
    click({"toggleSecondColor", 300, 12});
    click({"okButton"});
    EXPECT_EQ(ended(), hexAt(three));
    EXPECT_THAT(swatches(1),
                testing::ElementsAre(testing::StartsWith(hexAt(two)), testing::StartsWith(hexAt(three))));
}

class ScreenPickAtScale : public ScreenPick, public testing::WithParamInterface<const char*> {};

TEST_P(ScreenPickAtScale, TakesThePixelUnderThePointerAndOnesBesideItByKeys) {
    environment_["QT_SCALE_FACTOR"] = GetParam();
    const int right = kWidth - 1, bottom = kHeight - 1;
    std::vector<Place> places{{0, 0}, {right, 0}, {0, bottom}, {right, bottom}, {right / 2, bottom}};
    for (int i = 1; i < 9; ++i)
        places.push_back({i * 577 % kWidth, i * 331 % kHeight});
    std::string all = "keydown shift", expected;
    for (const Place at : places) {
        all += to(at) + " click 1";
        expected += hexAt(at) + "\n";
    }
    begin();
    waitForPicker();
    hands(all + " keyup shift" + to({501, 300}) + " key Right Right Right Down Down Left Up");
    hands("key Return");
    EXPECT_EQ(end(), 0);
    EXPECT_EQ(read("out"), expected + hexAt({503, 301}) + "\n");
}

INSTANTIATE_TEST_SUITE_P(Scales, ScreenPickAtScale, testing::Values("1", "1.5", "2"));

TEST_F(ScreenPick, EscapeTakesAllBack) {
    begin();
    waitForPicker();
    hands("keydown shift click 1 mousemove_relative 9 9 click 1 keyup shift key Escape");
    EXPECT_EQ(end(), 1);
    EXPECT_EQ(read("out"), "");
}

TEST_F(ScreenPick, ReachesEveryScreenByPointerAndByKeys) {
    environment_["QT_SCALE_FACTOR"] = "2";
    if (!painter_->split(602, kWidth, kHeight)) GTEST_SKIP() << "needs libXrandr";
    begin({"--json"});
    waitForPicker();
    EXPECT_EQ(desktop_.popups().size(), 2u);
    hands("keydown shift" + to({601, 77}) + " click 1" + to({603, 78}) + " click 1 keyup shift" +
          to({600, 500}) + " key Right Right Right Return");
    EXPECT_EQ(end(), 0);
    std::istringstream out(read("out"));
    std::vector<std::string> hexes;
    for (std::string line; std::getline(out, line);)
        hexes.push_back(json::parse(line)["hex"]);
    EXPECT_EQ(hexes, (std::vector{hexAt({601, 77}), hexAt({603, 78}), hexAt({603, 500})}));
}

/// A desktop's portal beside the server, on a message bus of its own.
class PortalPick : public ScreenPick {
  protected:
    /// Its version and response, red, green and blue.
    int pickBeside(const std::string& portal) {
        write("run.sh", "dbus-daemon --session --fork --nopidfile --print-address=3 --print-pid=4 "
                        "3>address 4>pid 2>/dev/null\n"
                        "export DBUS_SESSION_BUS_ADDRESS=$(cat address)\n"
                        "/usr/bin/python3 -B " CHROMALOG_X11_SCRIPTS "/colour_portal.py " +
                            portal +
                            " >ready &\n"
                            "trap \"kill $! $(cat pid)\" EXIT\n"
                            "while [ ! -s ready ]; do sleep 0.01; done\n"
                            "\"$@\"\n");
        std::vector<std::string> words{"sh", "-c", "cd '" + folder_.path() + "' && . ./run.sh", "sh"};
        const auto pick = command({"pick", "--format", "rgb16"});
        words.insert(words.end(), pick.begin(), pick.end());
        const int out = ::open(file("out").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        picking_.emplace(words, environment_, out);
        close(out);
        if (portal[0] == '1') {
            waitForPicker();
            hands(to({700, 400}) + " click 1");
        }
        return picking_->wait();
    }
};

TEST_F(PortalPick, GivesTheDesktopsColour) {
    EXPECT_EQ(pickBeside("2 0 0.25 0.5 1"), 0);
    EXPECT_EQ(read("out"), "16383 32767 65535\n");
}

TEST_F(PortalPick, IsTakenBackInTheDesktopsPicker) {
    EXPECT_EQ(pickBeside("2 1 0 0 0"), 1);
    EXPECT_EQ(read("out"), "");
}

TEST_F(PortalPick, GoesOnWithTheMagnifierWhereThePortalIsTooOld) {
    EXPECT_EQ(pickBeside("1 0 0.25 0.5 1"), 0);
    EXPECT_EQ(read("out"), "48316 37008 8481\n");
}

} // namespace
} // namespace chromalog::test
