#include "views/my_well.h"

#include "support/headless_controls.h"
#include "views/accessible_colour.h"

#include <gtest/gtest.h>

namespace chromalog {
namespace {

class DropDesk : public myWellDesk {
  public:
    int drops = 0;
    const DragSource* source = nullptr;
    const ColorWell* target = nullptr;
    Colour shown;
    void setFirstAndSecondFromDrop(const DragSource* from, const ColorWell& to) override {
        ++drops;
        source = from;
        target = &to;
        shown = to.color();
    }
};

TEST(MyWell, TellsWhereADropCameFromAfterItTookTheColour) {
    DropDesk desk;
    test::HeadlessColorWell well;
    Outlet<ColorWell> outlet;
    outlet.connect(&well);
    const myWell watched(outlet, desk);
    const DragSource source;
    well.drop(Colour::rgb(0.1, 0.2, 0.3), &source);
    EXPECT_EQ(desk.drops, 1);
    EXPECT_EQ(desk.source, &source);
    EXPECT_EQ(desk.target, &well);
    EXPECT_TRUE(desk.shown.sameRgb(Colour::rgb(0.1, 0.2, 0.3)));
}

TEST(MyWell, AnUnconnectedOutletIsLeftAlone) {
    DropDesk desk;
    Outlet<ColorWell> outlet;
    const myWell watched(outlet, desk);
    EXPECT_FALSE(outlet->onDrop);
}

TEST(AccessibleColour, TellsTheColourThatOkReturns) {
    EXPECT_EQ(accessibleColour(Colour::rgb(0.9, 0.3, 0.1)), "RGB 229 76 25, #e54c19");
    EXPECT_EQ(accessibleColour(Colour::rgb(1, 0, 1)), "RGB 255 0 255, #ff00ff");
    EXPECT_EQ(accessibleColour(Colour::rgb(0.999, 0.4999, 0.001)), "RGB 255 127 0, #ff7f00");
}

} // namespace
} // namespace chromalog
