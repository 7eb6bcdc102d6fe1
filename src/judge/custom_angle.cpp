#include "judge/custom_angle.h"

#include "base/number_text.h"
#include "base/translated.h"
#include "views/marks.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace chromalog {
namespace {

using std::numbers::pi;
constexpr double kInset = 9, kGrip = 6, kCore = 2, kReach = 9; ///< points of a handle: from the rim, radii
constexpr double kRing = 3;
constexpr const char* kKept = "customAngle";

Rect squareAround(Point p, double radius) {
    return {p.x - radius, p.y - radius, 2 * radius, 2 * radius};
}

/// A whole number in range, or 0.
int degreesIn(std::string_view text) {
    if (text.find_first_not_of("0123456789") != std::string_view::npos) return 0;
    const std::int64_t number = integerValue(text);
    return number >= CustomAngle::kLeast && number <= CustomAngle::kMost ? static_cast<int>(number) : 0;
}

int clampedDegrees(double degrees) {
    constexpr double least = CustomAngle::kLeast, most = CustomAngle::kMost;
    return degrees > least ? static_cast<int>(std::lround(std::min(degrees, most))) : CustomAngle::kLeast;
}

} // namespace

CustomAngle::CustomAngle(WorkingColours& colours, chromaticCircleView& wheel, Desktop& desktop,
                         Window& dialog, ColourOperations& atHand)
    : colours_(colours), wheel_(wheel), desktop_(desktop),
      degrees_(clampedDegrees(desktop.keptNumber(kKept, kFirst))),
      form_(desktop.loadForm("CustomAngle", owner(atHand))) {
    if (!form_) desktop.log("failed to load the form CustomAngle");
    customAngleWindow->whenClosed([this] { hide(); });
    customAngleWindow->attachAsChildOf(dialog);
    customAngleDegrees->whenEdited([this] { fieldEdited(); });
    customAngleDegrees->whenEditingEnds([this] { showDegrees(); });
    showDegrees();
}

CustomAngle::~CustomAngle() {
    wheel_.removeTool(*this);
    try {
        keep();
    } catch (...) { // without memory the angle before stays
    }
}

std::vector<OutletEntry> CustomAngle::wells() {
    return {{"origCustomAngle", &origCustomAngle},
            {"customAngle1Color", &customAngle1Color},
            {"customAngle2Color", &customAngle2Color}};
}

FormOwner CustomAngle::owner(ColourOperations& atHand) {
    FormOwner owner{wells(), {}, &atHand};
    owner.outlets.push_back({"customAngleWindow", &customAngleWindow});
    owner.outlets.push_back({"customAngleDegrees", &customAngleDegrees});
    return owner;
}

void CustomAngle::show() {
    if (!customAngleWindow->connected()) return; // nothing could take its handles away again
    if (!customAngleWindow->visible()) wheel_.addTool(*this);
    customAngleWindow->makeKeyAndOrderFront();
    harmonyPlaced();
}

void CustomAngle::hide() {
    wheel_.removeTool(*this);
    keep();
    if (customAngleWindow->visible()) customAngleWindow->orderOut();
}

void CustomAngle::keep() {
    desktop_.keepNumber(kKept, degrees_);
}

void CustomAngle::showDegrees() {
    customAngleDegrees->setText(std::to_string(degrees_));
    customAngleDegrees->setFault({});
}

void CustomAngle::setDegrees(int degrees) {
    degrees_ = degrees;
    harmonyPlaced();
    wheel_.setNeedsDisplay();
}

void CustomAngle::fieldEdited() {
    const int typed = degreesIn(customAngleDegrees->text());
    customAngleDegrees->setFault(typed ? "" : translated("An angle is a whole number of degrees, 5 to 175"));
    if (typed) setDegrees(typed);
}

HarmonyPoints CustomAngle::points() const {
    return harmonyPoints({wheel_.bounds().w, wheel_.bounds().h}, wheel_.selectedPoint(),
                         static_cast<float>(degrees_));
}

void CustomAngle::harmonyPlaced() {
    const HarmonyPoints placed = points();
    origCustomAngle->setColor(colours_.getSecondColor());
    customAngle1Color->setColor(wheel_.getColorAtPoint(placed.balance1));
    customAngle2Color->setColor(wheel_.getColorAtPoint(placed.balance2));
}

Point CustomAngle::centre() const {
    return {wheel_.bounds().w / 2, wheel_.bounds().h / 2};
}

double CustomAngle::direction() const {
    const Point selected = wheel_.selectedPoint(), middle = centre();
    return std::atan2(selected.y - middle.y, selected.x - middle.x);
}

std::vector<Point> CustomAngle::handles() const {
    const Point middle = centre();
    const double radius = std::max(middle.x - kInset, 0.0);
    std::vector<Point> both;
    for (const int side : {1, -1}) {
        const double angle = direction() + side * degrees_ * pi / 180;
        both.push_back({middle.x + radius * std::cos(angle), middle.y + radius * std::sin(angle)});
    }
    return both;
}

bool CustomAngle::takesPress(Point p) {
    return std::ranges::any_of(
        handles(), [p](Point handle) { return std::hypot(p.x - handle.x, p.y - handle.y) <= kReach; });
}

/// The angle is that between the pointer and the selected point, on whichever side it is.
void CustomAngle::handleDragged(Point p) {
    const Point middle = centre();
    if (p == middle) return;
    const double turned = std::atan2(p.y - middle.y, p.x - middle.x) - direction();
    setDegrees(clampedDegrees(std::abs(std::remainder(turned, 2 * pi)) * 180 / pi));
    showDegrees();
}

void CustomAngle::drawOverWheel(Canvas& canvas) {
    const HarmonyPoints placed = points();
    Path path;
    for (const Point p : {placed.balance1, placed.balance2})
        path.oval(squareAround(p, kRing));
    path.moveTo(wheel_.selectedPoint());
    for (const Point p : {placed.balance1, placed.balance2, wheel_.selectedPoint()})
        path.lineTo(p);
    for (const Point handle : handles())
        for (const double radius : {kGrip, kCore})
            path.oval(squareAround(handle, radius));
    strokeWithHalo(canvas, path);
}

} // namespace chromalog
