// Which views are drawn anew where a colour changes.
#include "dialog/pick_fixture.h"

namespace chromalog::test {
namespace {

class RedrawsTest : public PickTest {
  protected:
    static int redisplays(HeadlessDesktop& d, const char* view) {
        const View& of = *d.forms.at("chromalogWindow")->views.at(view);
        return dynamic_cast<HeadlessViewHost&>(*of.host()).redisplays;
    }
};

TEST_F(RedrawsTest, TheStripAndTheChartFollowTheSecondColour) {
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        const int strip = redisplays(d, "lumiView"), chart = redisplays(d, "myToneView");
        c.colours().changeSecondColor(Colour::rgb(0.2, 0.4, 0.6));
        EXPECT_GT(redisplays(d, "lumiView"), strip);
        EXPECT_GT(redisplays(d, "myToneView"), chart);
    });
}

TEST_F(RedrawsTest, TheWheelIsPaintedInItsBrightness) {
    pick([](ChromalogControler& c, HeadlessDesktop& d) {
        c.views().wheel.layOut({0, 0, 200, 200});
        c.colours().moveLuminosity(1);
        const int before = redisplays(d, "chromaView");
        const double bright = c.views().wheel.getColorAtPoint({90, 60}).brightness();
        c.colours().moveLuminosity(0.25F);
        EXPECT_GT(redisplays(d, "chromaView"), before);
        EXPECT_LT(c.views().wheel.getColorAtPoint({90, 60}).brightness(), bright / 2);
    });
}

} // namespace
} // namespace chromalog::test
