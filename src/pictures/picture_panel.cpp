#include "pictures/picture_panel.h"

#include "base/number_text.h"
#include "base/translated.h"
#include "pictures/picture_kind.h"
#include "spaces/nearest_css_name.h"
#include "spaces/picture_colours.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace chromalog {
namespace {

constexpr int kLeast = 2, kMost = 64, kUsual = 12; // colours
constexpr int kLongestOverview = 2048;             // pixels
constexpr double kSecondsBetweenLooks = 0.1;
constexpr const char *kEdgeKey = "pictureSquare", *kOrderKey = "pictureOrder", *kCountKey = "pictureColors";

std::string percentOf(double done) {
    return std::to_string(static_cast<int>(100 * std::clamp(done, 0.0, 1.0))) + " %";
}

/// The nearest of those that a list keeps: it truncates, and would take 0.9999999 for less than white.
Colour kept(const Rgb& rgb) {
    const auto channel = [](double v) { return std::round(v * 65535) / 65535; };
    return Colour::rgb(channel(rgb.red), channel(rgb.green), channel(rgb.blue));
}

std::vector<TakenColour> takenFrom(const std::vector<PictureColour>& colours) {
    std::vector<TakenColour> taken;
    taken.reserve(colours.size());
    for (const PictureColour& each : colours)
        taken.push_back({kept(each.rgb), std::string(nearestCssName(each.rgb)), each.share});
    return taken;
}

/// A number that was kept may be any.
int rowOf(double kept, int rows) {
    return kept >= 0 && kept < rows ? static_cast<int>(kept) : 0;
}

} // namespace

PicturePanel::PicturePanel(PicturePanelParts parts) : parts_(std::move(parts)), work_(parts_.desktop) {
    form_ = parts_.desktop.loadForm("PicturePanel", owner());
    if (!form_) parts_.desktop.log("failed to load the form PicturePanel");
    pictureWindow->whenClosed([this] { hide(); });
    pictureWindow->attachAsChildOf(parts_.dialog);
    view_.picked = [this](const Colour& colour) { parts_.pick(colour); };
    view_.given = [this](const PictureSource& source) { read(source); };
    view_.moved = [this] { picturePlace->setText(view_.place()); };
    taken_.picked = view_.picked;
    taken_.given = view_.given;
    pictureCount->whenEdited([this] { countTyped(); });
    pictureCount->whenEditingEnds([this] { setCount(count_); });
    start();
}

FormOwner PicturePanel::owner() {
    return {
        {{"pictureWindow", &pictureWindow},
         {"pictureNote", &pictureNote},
         {"picturePlace", &picturePlace},
         {"pictureCount", &pictureCount},
         {"pictureCountStep", &pictureCountStep},
         {"pictureSquare", &pictureSquare},
         {"pictureOrder", &pictureOrder},
         {"cancelPicture", &cancelPicture},
         {"pictureToList1", &pictureToList1},
         {"pictureToList2", &pictureToList2},
         {"takenScroller", &takenScroller},
         {"takenColors", &taken_},
         {"picture", &view_}},
        {{"openPicture:", [this] { choose(); }},
         {"pastePicture:", [this] { paste(); }},
         {"cancelPicture:", [this] { cancel(); }},
         {"pictureSquare:", [this] { setEdge(); }},
         {"pictureOrder:", [this] { setOrder(); }},
         {"stepPictureColors:", [this] { setCount(static_cast<int>(pictureCountStep->value())), take(); }},
         {"takePictureColors:", [this] { take(); }},
         {"pictureToList1:", [this] { addTo(1); }},
         {"pictureToList2:", [this] { addTo(2); }}}};
}

/// With what the person chose last.
void PicturePanel::start() {
    const Desktop& desktop = parts_.desktop;
    pictureSquare->selectRow(rowOf(desktop.keptNumber(kEdgeKey, 0), 3));
    pictureOrder->selectRow(rowOf(desktop.keptNumber(kOrderKey, 0), 2));
    const double count = desktop.keptNumber(kCountKey, kUsual);
    setCount(count >= kLeast && count <= kMost ? static_cast<int>(count) : kUsual);
    view_.setEdge(1 + 2 * pictureSquare->selectedRow());
    showState();
}

void PicturePanel::show() {
    pictureWindow->makeKeyAndOrderFront();
    if (work_.busy()) return;
    if (view_.picture().empty()) return choose();
    if (taken_.colours().empty()) take(); // it was hidden meanwhile
}

void PicturePanel::hide() {
    cancel();
    if (pictureWindow->visible()) pictureWindow->orderOut();
}

void PicturePanel::choose() {
    OpenPanel panel{pictureExtensions()};
    panel.kind = translated("Pictures");
    panel.title = translated("Open picture");
    parts_.desktop.beginOpenPanel(panel, *pictureWindow, [this](std::optional<std::string> path) {
        if (path) read(parts_.desktop.pictureFile(*path));
    });
}

void PicturePanel::paste() {
    const auto picture = parts_.desktop.generalPasteboard().picture;
    const PictureSource source = picture ? picture() : PictureSource();
    if (source.read)
        read(source);
    else
        say(translated("There is no picture on the clipboard."));
}

void PicturePanel::read(const PictureSource& source) {
    struct Result {
        ReadPicture read{{}, translated("there is not enough memory"), {}};
        Picture overview;
    };
    const auto result = std::make_shared<Result>();
    const auto job = [source, result](const WorkProgress& progress) {
        ReadPicture read = source.read ? source.read(progress) : ReadPicture();
        result->overview = overviewOf(read.picture, kLongestOverview);
        result->read = std::move(read);
    };
    reading_ = source.name;
    said_.clear();
    wanted_.clear();
    parts_.desktop.statusLine().takeBack(StatusLine::About::files);
    work_.begin(job, [this, result, name = source.name] { hasRead(name, result->read, result->overview); });
    showState();
}

void PicturePanel::hasRead(const std::string& name, const ReadPicture& read, const Picture& overview) {
    reading_.clear();
    if (read.picture.empty()) {
        wanted_.clear();
        return say(read.fault.empty() ? translated("%1: no picture", name) : read.fault);
    }
    name_ = name;
    view_.setPicture(read.picture, overview);
    taken_.setColours({});
    take();
    if (!read.remark.empty()) say(read.remark);
}

void PicturePanel::take() {
    if (view_.picture().empty() || !reading_.empty()) return; // what is read is taken from then
    const auto result = std::make_shared<std::vector<TakenColour>>();
    const PictureOrder order = pictureOrder->selectedRow() == 1 ? PictureOrder::hue : PictureOrder::amount;
    const auto job = [picture = view_.picture(), count = count_, order,
                      result](const WorkProgress& progress) {
        const auto colours = pictureColours(picture.pixels, count, order, progress);
        if (colours) *result = takenFrom(*colours);
    };
    work_.begin(job, [this, result] { hasTaken(std::move(*result)); });
    showState();
}

void PicturePanel::hasTaken(std::vector<TakenColour> colours) {
    taken_.setColours(std::move(colours));
    showState();
    for (const int list : std::exchange(wanted_, {}))
        addTo(list);
}

void PicturePanel::cancel() {
    work_.cancel();
    reading_.clear();
    wanted_.clear();
    showState();
}

void PicturePanel::addTo(int list) {
    if (work_.busy()) {
        if (std::ranges::find(wanted_, list) == wanted_.end())
            wanted_.push_back(list); // once, also by two clicks
        showState();
    } else if (!taken_.colours().empty()) {
        parts_.add(list, taken_.colours());
    }
}

void PicturePanel::setEdge() {
    view_.setEdge(1 + 2 * pictureSquare->selectedRow());
    parts_.desktop.keepNumber(kEdgeKey, pictureSquare->selectedRow());
}

void PicturePanel::setOrder() {
    parts_.desktop.keepNumber(kOrderKey, pictureOrder->selectedRow());
    take();
}

void PicturePanel::setCount(int count) {
    if (count != count_ && count_ != 0) parts_.desktop.keepNumber(kCountKey, count);
    count_ = count;
    pictureCount->setText(std::to_string(count));
    pictureCount->setFault("");
    pictureCountStep->configure(kLeast, kMost, 1, count, false);
}

void PicturePanel::countTyped() {
    const std::int64_t typed = integerValue(pictureCount->text());
    const bool known = typed >= kLeast && typed <= kMost;
    pictureCount->setFault(known ? "" : translated("2 to 64"));
    if (!known || typed == count_) return;
    setCount(static_cast<int>(typed));
    take();
}

void PicturePanel::showState() {
    const bool busy = work_.busy();
    cancelPicture->setHidden(!busy);
    const bool can = busy || !taken_.colours().empty();
    pictureToList1->setEnabled(can);
    pictureToList2->setEnabled(can);
    const Picture& picture = view_.picture();
    if (busy)
        pictureNote->setText((reading_.empty() ? translated("Taking colors from %1", name_)
                                               : translated("Reading %1", reading_)) +
                             ": " + percentOf(work_.done()) +
                             (wanted_.empty() ? "" : translated(", then into the list")));
    else if (!said_.empty())
        pictureNote->setText(said_);
    else if (picture.empty())
        pictureNote->setText(translated("No picture yet"));
    else
        pictureNote->setText(translated("%1, %2 x %3 pixels", name_, picture.width, picture.height));
    watch();
}

void PicturePanel::watch() {
    watch_.reset();
    if (work_.busy()) watch_ = parts_.desktop.startTimer(kSecondsBetweenLooks, [this] { showState(); });
}

/// Where a person looks, and where the dialog says such things.
void PicturePanel::say(const std::string& text) {
    said_ = text;
    showState();
    parts_.desktop.statusLine().say(StatusLine::About::files, text);
}

} // namespace chromalog
