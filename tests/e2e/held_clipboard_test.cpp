// What other programs find on the clipboard after a pick of --clipboard, and how long it stays there.
#include "e2e/story.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <memory>
#include <optional>
#include <poll.h>
#include <unistd.h>

namespace chromalog::test {
namespace {

/// Another program: a client of the server with a window nobody sees.
class Neighbour {
  public:
    explicit Neighbour(const std::string& display) : display_(XOpenDisplay(display.c_str())) {
        window_ = XCreateSimpleWindow(display_, DefaultRootWindow(display_), 0, 0, 1, 1, 0, 0, 0);
    }
    ~Neighbour() { XCloseDisplay(display_); }
    Neighbour(const Neighbour&) = delete;
    Neighbour& operator=(const Neighbour&) = delete;

    bool clipboardIsOwned() const { return XGetSelectionOwner(display_, atom("CLIPBOARD")) != 0; }
    void copySomething() const {
        XSetSelectionOwner(display_, atom("CLIPBOARD"), window_, CurrentTime);
        XSync(display_, False);
    }

    /// The clipboard as this type; numbers of 16 bits as decimals. Empty where nobody answers.
    std::string paste(const char* type) const {
        XConvertSelection(display_, atom("CLIPBOARD"), atom(type), atom("PASTED"), window_, CurrentTime);
        XEvent event{};
        do {
            if (!answers()) return {};
            XNextEvent(display_, &event);
        } while (event.type != SelectionNotify);
        Atom given = 0;
        int bits = 0;
        unsigned long count = 0, left = 0;
        unsigned char* data = nullptr;
        XGetWindowProperty(display_, window_, atom("PASTED"), 0, 64, True, AnyPropertyType, &given, &bits,
                           &count, &left, &data);
        std::string pasted;
        for (unsigned long i = 0; i < count && bits == 16; ++i)
            pasted += std::to_string(reinterpret_cast<unsigned short*>(data)[i]) + ' ';
        if (bits == 8) pasted.assign(reinterpret_cast<char*>(data), count);
        if (data) XFree(data);
        return pasted;
    }

    /// How many windows show, but for the root.
    int windowsInView() const {
        Window root = 0, parent = 0, *children = nullptr;
        unsigned int count = 0;
        XQueryTree(display_, DefaultRootWindow(display_), &root, &parent, &children, &count);
        const auto shows = [this](Window window) {
            XWindowAttributes is{};
            return XGetWindowAttributes(display_, window, &is) && is.map_state == IsViewable;
        };
        const auto shown = std::count_if(children, children + count, shows);
        if (children) XFree(children);
        return static_cast<int>(shown);
    }

  private:
    bool answers() const {
        XFlush(display_);
        pollfd waits{ConnectionNumber(display_), POLLIN, 0};
        return XPending(display_) > 0 || poll(&waits, 1, 5000) > 0;
    }
    Atom atom(const char* name) const { return XInternAtom(display_, name, False); }

    Display* display_;
    Window window_ = 0;
};

class HeldClipboard : public DrivenPick {
  protected:
    void SetUp() override {
        if (!server_->runs()) GTEST_SKIP() << "needs Xvfb";
        environment_["QT_QPA_PLATFORM"] = "xcb";
        environment_["DISPLAY"] = server_->display();
        neighbour_ = std::make_unique<Neighbour>(server_->display());
    }

    /// Starts a pick that ends by itself, and waits until its colour is printed.
    void start(std::vector<std::string> options) {
        options.insert(options.begin(), {CHROMALOG_PROGRAM, "--data-dir", file("data")});
        for (const char* name : {"out", "err"})
            write(name, "");
        const int out = ::open(file("out").c_str(), O_WRONLY), err = ::open(file("err").c_str(), O_WRONLY);
        program_.emplace(options, environment_, out, err);
        close(out);
        close(err);
        until([this] { return read("out").ends_with('\n') || !program_->runs(); });
    }
    static void until(const std::function<bool()>& holds) {
        for (int i = 0; i < 4000 && !holds(); ++i)
            usleep(5000);
        ASSERT_TRUE(holds());
    }
    void endsQuietly(int code) {
        until([this] { return !program_->runs(); });
        EXPECT_EQ(program_->wait(), code);
        EXPECT_EQ(read("err"), "");
    }

    std::optional<XServer> server_{std::in_place};
    std::unique_ptr<Neighbour> neighbour_;
    std::optional<StartedProgram> program_;
};

TEST_F(HeldClipboard, GivesTheColourUntilAnotherProgramCopies) {
    writeScript("type firstR 229\ntype firstG 76\ntype firstB 25\npress okPressed:\n");
    start({"--clipboard", "--drive", file("script")});
    EXPECT_EQ(read("out"), "#e54c19\n");
    until([this] { return neighbour_->windowsInView() == 0; });
    EXPECT_EQ(neighbour_->paste("UTF8_STRING"), "#e54c19");
    EXPECT_EQ(neighbour_->paste("application/x-color"), "58853 19532 6425 65535 ");
    EXPECT_EQ(neighbour_->paste("UTF8_STRING"), "#e54c19") << "as often as it is asked for";
    EXPECT_TRUE(program_->runs()) << "the process that was started, and no other";
    neighbour_->copySomething();
    endsQuietly(0);
}

TEST_F(HeldClipboard, ASecondPickTakesOverFromTheFirst) {
    start({"--clipboard", "--accept", "--color", "#102030"});
    writeScript("type firstR 1\npress okPressed:\n");
    const int out = ::open(file("second").c_str(), O_WRONLY | O_CREAT, 0600);
    StartedProgram second(
        {CHROMALOG_PROGRAM, "--data-dir", file("other"), "--clipboard", "--drive", file("script")},
        environment_, out);
    close(out);
    endsQuietly(0);
    EXPECT_THAT(neighbour_->paste("UTF8_STRING"), testing::StartsWith("#01"));
    EXPECT_TRUE(second.runs());
    neighbour_->copySomething();
    EXPECT_EQ(second.wait(), 0);
    EXPECT_THAT(read("second"), testing::StartsWith("#01"));
}

TEST_F(HeldClipboard, IsLeftAloneByCancelAndWithoutTheOption) {
    for (const std::vector<std::string>& options :
         {std::vector<std::string>{"--clipboard", "--cancel"}, {"--accept"}}) {
        start(options);
        endsQuietly(options.size() == 2 ? 1 : 0);
        EXPECT_FALSE(neighbour_->clipboardIsOwned());
    }
}

TEST_F(HeldClipboard, EndsWithTheServerAndByASignal) {
    start({"--clipboard", "--accept"});
    program_->signal(SIGTERM);
    endsQuietly(128 + SIGTERM);
    start({"--clipboard", "--accept"});
    until([this] { return neighbour_->windowsInView() == 0 && neighbour_->clipboardIsOwned(); });
    neighbour_.reset();
    server_.reset();
    endsQuietly(0);
}

/// By a real press under a window manager.
class StoryOfACopy : public Story {};

TEST_F(StoryOfACopy, OkCopiesAndNoWindowStays) {
    open({"--clipboard"});
    click({"toggleSecondColor", 300, 12});
    click({"chromaView", 300, 100});
    click({"chromaView", 300, 100});
    click({"okButton"});
    until([this] { return read("out").ends_with('\n'); }, "the colour");
    const Neighbour neighbour(desktop_.display());
    until([this] { return desktop_.title(desktop_.active()) != "Chromalog"; }, "the window's end");
    EXPECT_EQ(neighbour.paste("UTF8_STRING") + '\n', read("out"));
    neighbour.copySomething();
    EXPECT_EQ(ended(), "#cc42b9");
}

} // namespace
} // namespace chromalog::test
