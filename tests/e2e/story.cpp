#include "e2e/story.h"

#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <regex>
#include <sstream>
#include <thread>
#include <unistd.h>

namespace chromalog::test {

namespace {

constexpr auto kPatience = std::chrono::seconds(20);

/// A file that a program writes into.
struct Sink {
    const int descriptor;
    explicit Sink(const std::string& path)
        : descriptor(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600)) {}
    ~Sink() { close(descriptor); }
};

/// Names are stored as hex digits in a state.
std::string text(const std::string& hex) {
    std::string all;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
        all += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
    return all;
}

std::vector<std::string> words(const std::string& line) {
    std::istringstream in(line);
    return {std::istream_iterator<std::string>(in), {}};
}

} // namespace

void Story::SetUp() {
    if (!desktop_.runs()) GTEST_SKIP() << "needs Xvfb, openbox and xdotool";
    writeThree();
    environment_["DISPLAY"] = desktop_.display();
}

void Story::until(const std::function<bool()>& holds, const std::string& what) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (!holds()) {
        if (std::chrono::steady_clock::now() > end) throw std::runtime_error("waited in vain for " + what);
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

void Story::prepare(const std::string& script, int width, int height) {
    environment_["QT_QPA_PLATFORM"] = "offscreen";
    if (width > 0) {
        std::ifstream in(CHROMALOG_RESOURCES "/chromalogWindow.ui");
        std::string form{std::istreambuf_iterator<char>(in), {}};
        const auto once = std::regex_constants::format_first_only;
        form = std::regex_replace(form, std::regex("<width>\\d+"), "<width>" + std::to_string(width), once);
        form =
            std::regex_replace(form, std::regex("<height>\\d+"), "<height>" + std::to_string(height), once);
        std::filesystem::create_directory(file("forms"));
        write("forms/chromalogWindow.ui", form);
        environment_["CHROMALOG_FORMS"] = file("forms");
    }
    playWell(script + "state $/frames.json\n");
    environment_.erase("CHROMALOG_FORMS");
    environment_["QT_QPA_PLATFORM"] = "xcb";
    const json seen = state("frames.json");
    for (const auto& [name, outlet] : seen["outlets"].items())
        frames_[name] = outlet["frame"].get<std::vector<int>>();
}

void Story::startWith(const std::string& name, int list) {
    prepare("choose $/" + name + "\npress loadSwatch" + std::to_string(list) + ":\n");
}

void Story::open(std::vector<std::string> options) {
    if (frames_.empty()) prepare();
    options.insert(options.end(), {"--color", "#3366cc"});
    const Sink out(file("out")), err(file("err"));
    program_.emplace(command(options), environment_, out.descriptor, err.descriptor);
    waitForWindow("Chromalog");
    dialog_ = desktop_.active();
}

XDesktop::Box Story::onScreen(const At& at) const {
    const auto window = desktop_.place(at.inPanel ? desktop_.active() : dialog_).value();
    const auto& frame = frames_.at(at.outlet);
    const int x = frame[0] + (at.x < 0 ? frame[2] / 2 : at.x),
              y = frame[1] + (at.y < 0 ? frame[3] / 2 : at.y);
    return {window.x + x * scale_, window.y + y * scale_, 0, 0};
}

void Story::click(const At& at, const char* button) {
    const auto to = onScreen(at);
    desktop_.hands({"mousemove", std::to_string(to.x), std::to_string(to.y), "click", button});
}

void Story::sweep(const At& from, const At& to) {
    const auto a = onScreen(from), b = onScreen(to);
    std::vector<std::string> all{"mousemove", std::to_string(a.x), std::to_string(a.y), "mousedown", "1"};
    for (int step = 1; step <= 4; ++step)
        all.insert(all.end(), {"mousemove", std::to_string(a.x + (b.x - a.x) * step / 4),
                               std::to_string(a.y + (b.y - a.y) * step / 4)});
    all.insert(all.end(), {"mouseup", "1"});
    desktop_.hands(all);
}

/// What is dragged shows at the pointer, small as no tool tip is.
bool Story::showsDrag() const {
    return std::ranges::any_of(desktop_.popups(), [this](const XDesktop::Popup& popup) {
        return popup.isTip && popup.place.w <= 64 * scale_;
    });
}

void Story::drag(const At& from, const At& to) {
    const auto a = onScreen(from), b = onScreen(to);
    desktop_.hands({"mousemove", std::to_string(a.x), std::to_string(a.y), "mousedown", "1",
                    "mousemove_relative", "8", "4", "mousemove_relative", "8", "4"});
    until([this] { return showsDrag(); }, "a drag from " + from.outlet);
    desktop_.hands({"mousemove", std::to_string(b.x - 6), std::to_string(b.y), "mousemove",
                    std::to_string(b.x - 2), std::to_string(b.y), "mousemove", std::to_string(b.x),
                    std::to_string(b.y), "mouseup", "1"});
    until([this] { return !showsDrag(); }, "the end of a drag to " + to.outlet);
}

void Story::keys(const std::string& names) {
    std::vector<std::string> all{"key"};
    for (const std::string& name : words(names))
        all.push_back(name);
    desktop_.hands(all);
}

/// As a script finds it.
std::vector<std::string> Story::tabOrder() {
    constexpr int most = 40;
    std::string script;
    for (int i = 0; i < most; ++i)
        script += "key Tab\nstate $/tab" + std::to_string(i) + ".json\n";
    prepare(script);
    std::vector<std::string> order;
    for (int i = 0; i < most; ++i) {
        const json seen = state("tab" + std::to_string(i) + ".json");
        for (const auto& [name, outlet] : seen["outlets"].items())
            if (outlet.value("focused", false)) order.push_back(name);
    }
    return order;
}

void Story::tabTo(const std::string& outlet) {
    const auto order = tabOrder();
    const auto found = std::ranges::find(order, outlet);
    if (found == order.end()) throw std::runtime_error("Tab does not come to " + outlet);
    const auto at = static_cast<std::size_t>(found - order.begin()) + 1;
    for (; tabbed_ < at; ++tabbed_)
        keys("Tab");
}

void Story::type(const std::string& typed) {
    std::size_t from = 0;
    while (from < typed.size()) {
        const std::size_t end = std::min(typed.find_first_of("\n\t", from), typed.size());
        if (end > from) desktop_.hands({"type", "--delay", "3", typed.substr(from, end - from)});
        if (end < typed.size()) keys(typed[end] == '\n' ? "Return" : "Tab");
        from = end + 1;
    }
}

void Story::waitForWindow(const std::string& title) {
    until(
        [&] {
            if (program_ && !program_->runs())
                throw std::runtime_error("the program has ended: " + read("err"));
            return desktop_.title(desktop_.active()) == title;
        },
        "the window " + title);
}

void Story::choose(int item, int of) {
    std::optional<XDesktop::Box> menu;
    until(
        [&] {
            for (const XDesktop::Popup& popup : desktop_.popups())
                if (!popup.isTip) menu = popup.place;
            return menu.has_value();
        },
        "a menu");
    desktop_.hands({"mousemove", std::to_string(menu->x + menu->w / 3),
                    std::to_string(menu->y + menu->h * (2 * item + 1) / (2 * of)), "click", "1"});
}

void Story::choose(const std::string& menu, const std::string& item) {
    std::ifstream in(CHROMALOG_RESOURCES "/chromalogWindow.ui");
    const std::string form{std::istreambuf_iterator<char>(in), {}};
    const std::size_t from = form.find("<widget class=\"QMenu\" name=\"" + menu + '"');
    const std::string items = form.substr(from, form.find("</widget>", from) - from);
    const std::regex added("<addaction name=\"(\\w+)\"");
    std::vector<std::string> names;
    for (std::sregex_iterator at(items.begin(), items.end(), added), end; at != end; ++at)
        if ((*at)[1] != "separator") names.push_back((*at)[1]);
    const auto found = std::ranges::find(names, item);
    if (found == names.end()) throw std::runtime_error("no item " + item);
    choose(static_cast<int>(found - names.begin()), static_cast<int>(names.size()));
}

bool Story::menuIsOpen() const {
    return std::ranges::any_of(desktop_.popups(), [](const XDesktop::Popup& popup) { return !popup.isTip; });
}

void Story::take(const At& at, int item) {
    click(at, "3");
    until([this] { return menuIsOpen(); }, "the menu of " + at.outlet);
    std::string names;
    for (int i = 0; i < item; ++i)
        names += "Down ";
    keys(names + "Return");
    until([this] { return !menuIsOpen(); }, "the end of the menu of " + at.outlet);
}

void Story::waitForColour(const At& at, const std::string& hex) {
    const auto place = onScreen(at);
    const auto wanted = static_cast<std::uint32_t>(std::stoul(hex.substr(1), nullptr, 16));
    until([&] { return desktop_.pixel(place.x, place.y) == wanted; }, hex + " at " + at.outlet);
}

std::string Story::ended() {
    until([this] { return !program_->runs(); }, "the program's end");
    EXPECT_LE(program_->wait(), 1);
    EXPECT_EQ(read("err"), "");
    std::string out = read("out");
    if (out.ends_with('\n')) out.pop_back();
    return out;
}

std::vector<std::string> Story::swatches(int list) {
    prepare();
    std::vector<std::string> all;
    const json seen = state("frames.json");
    for (const json& record : seen["lists"][static_cast<std::size_t>(list - 1)]["records"]) {
        std::ostringstream line;
        line << text(record["name"]) << ' ' << record["SRed"] << ' ' << record["SGreen"] << ' '
             << record["SBlue"];
        all.push_back(line.str());
    }
    return all;
}

} // namespace chromalog::test
