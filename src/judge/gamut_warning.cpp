#include "judge/gamut_warning.h"

#include "base/colour_text.h"
#include "base/number_text.h"
#include "base/translated.h"
#include "views/marks.h"

#include <cmath>
#include <numbers>

namespace chromalog {
namespace {

constexpr double kSlice = 0.001; ///< seconds of a search between two events

/// The 8-bit values that texts tell of a colour.
HostGamut::Bytes bytesOf(const Colour& colour) {
    const RgbChannels channels = channelsOf(colour);
    return {byteOf(channels[0]), byteOf(channels[1]), byteOf(channels[2])};
}

Colour colourOf(const HostGamut::Bytes& bytes) {
    return Colour::rgb(bytes[0] / 255.0, bytes[1] / 255.0, bytes[2] / 255.0);
}

/// Where all of a stretch can be printed, the disc's own rim is the outline.
Path pathOf(const GamutOutline::Rays& rays, double radius) {
    Path path;
    const auto at = [&](int ray) {
        const double angle = 2 * std::numbers::pi * ray / GamutOutline::kRays;
        const double distance = radius * double{rays.saturation[static_cast<std::size_t>(ray)]};
        return Point{radius + distance * std::cos(angle), radius - distance * std::sin(angle)};
    };
    bool drawing = false;
    for (int ray = 0; ray < GamutOutline::kRays; ++ray) {
        const int next = (ray + 1) % GamutOutline::kRays;
        const auto i = static_cast<std::size_t>(ray), j = static_cast<std::size_t>(next);
        const bool within = rays.saturation[i] < 1 || rays.saturation[j] < 1;
        if (within && !drawing) path.moveTo(at(ray));
        if (within) path.lineTo(at(next));
        drawing = within;
    }
    return path;
}

} // namespace

GamutWarning::GamutWarning(WorkingColours& colours, chromaticCircleView& wheel, Desktop& desktop,
                           ColorServicesProc services)
    : colours_(colours), wheel_(wheel), desktop_(desktop), host_(services), outline_(services) {}

std::vector<OutletEntry> GamutWarning::table() {
    return {{"gamutFirst", &first_.button, true},
            {"gamutSecond", &second_.button, true},
            {"itemGamutWarning", &itemGamutWarning, true}};
}

void GamutWarning::start() {
    for (Mark* mark : {&first_, &second_})
        mark->button->setHidden(true);
    if (!host_.available()) disable(translated("Gamut Warning (the host converts no colors)"));
}

void GamutWarning::disable(const std::string& why) {
    itemGamutWarning->setTitle(why);
    itemGamutWarning->setState(0);
    itemGamutWarning->setEnabled(false);
}

/// A host that has the service may still fail.
void GamutWarning::toggle() {
    if (!shown_ && !host_.judge({128, 128, 128})) {
        desktop_.statusLine().say(StatusLine::About::colours,
                                  translated("The host does not convert colors to inks"));
        return disable(translated("Gamut Warning (the host does not convert to inks)"));
    }
    show(!shown_);
}

void GamutWarning::show(bool shown) {
    shown_ = shown;
    itemGamutWarning->setState(shown ? 1 : 0);
    first_.judged = second_.judged = {-1, -1, -1};
    if (shown) {
        wheel_.addTool(*this);
        return follow();
    }
    wheel_.removeTool(*this);
    timer_.reset();
    outline_.forget();
    searching_ = drawn_ = -1;
    for (Mark* mark : {&first_, &second_})
        mark->button->setHidden(true);
}

void GamutWarning::follow() {
    if (!shown_) return;
    judge(first_, colours_.getFirstColor());
    judge(second_, colours_.getSecondColor());
    if (outline_.at(level()))
        drawn_ = level(); // the wheel draws itself anew at another brightness
    else
        searchLater();
}

void GamutWarning::judge(Mark& mark, const Colour& colour) {
    const HostGamut::Bytes bytes = bytesOf(colour);
    if (bytes == mark.judged) return;
    mark.judged = bytes;
    mark.printable.reset();
    const auto verdict = host_.judge(bytes);
    if (verdict && !verdict->printable) {
        mark.printable = verdict->roundTrip;
        mark.button->setHelp(
            translated("Cannot be printed. Press to use the nearest printable color, %1 (ΔE00 %2)",
                       hexText(channelsOf(colourOf(verdict->roundTrip))), fixedText(verdict->difference, 1)));
    }
    mark.button->setHidden(!mark.printable);
}

void GamutWarning::usePrintable(bool first) {
    const auto printable = (first ? first_ : second_).printable;
    if (!shown_ || !printable) return;
    if (first)
        colours_.enterFirst(colourOf(*printable));
    else
        colours_.enterSecond(colourOf(*printable));
}

/// After the events that are waiting: a drag is never held up. What is under way is finished first, so that a
/// drag along the strip sees an outline at all.
void GamutWarning::searchLater() {
    if (timer_) return;
    if (searching_ < 0) searching_ = level();
    timer_ = desktop_.startTimer(0, [this] { search(); });
}

void GamutWarning::search() {
    timer_.reset();
    if (!outline_.search(searching_, kSlice)) return searchLater();
    drawn_ = searching_;
    searching_ = -1;
    wheel_.setNeedsDisplay();
    follow();
}

/// Until the outline of a brightness is found, that of the one before stands.
void GamutWarning::drawOverWheel(Canvas& canvas) {
    const GamutOutline::Rays* rays = outline_.at(drawn_);
    if (!rays || !rays->known) return;
    strokeWithHalo(canvas, pathOf(*rays, wheel_.bounds().w / 2));
}

} // namespace chromalog
