// What stands in where nothing is connected, and where a platform has nothing of its own.
#include "desktop/controls.h"
#include "desktop/outlet.h"
#include "desktop/worker.h"
#include "support/headless_desktop.h"

#include <gmock/gmock.h>

namespace chromalog::test {
namespace {

using testing::ElementsAre;

TEST(Outlet, WithoutAControlIsNone) {
    Outlet<Button> outlet;
    EXPECT_FALSE(outlet.is(nullptr));
    HeadlessButton button, other;
    outlet.connect(&button);
    EXPECT_TRUE(outlet.is(&button));
    EXPECT_FALSE(outlet.is(&other));
}

TEST(Outlet, AListThatIsNotThereHasNoSelection) {
    EXPECT_EQ(Outlet<RowList>()->selectedRow(), -1);
}

TEST(Worker, WithoutAThreadWorkIsDoneAtOnceAndThenFollowed) {
    std::vector<std::string> order;
    Worker().begin([&] { order.push_back("work"); }, [&] { order.push_back("then"); });
    EXPECT_THAT(order, ElementsAre("work", "then"));
}

TEST(KeptNumber, IsTheOtherOneWhereAPlatformKeepsNone) {
    const HeadlessDesktop desktop;
    EXPECT_EQ(desktop.Desktop::keptNumber("angle", 7.5), 7.5);
}

struct PlainView : View {
    void drawRect(Canvas&) override {}
};

TEST(View, TellsItsHostOfEachChange) {
    PlainView view;
    view.announceChange(); // nobody is there yet
    HeadlessViewHost host;
    view.setHost(&host);
    view.announceChange();
    EXPECT_EQ(host.announcements, 1);
    view.setNeedsDisplay();
    EXPECT_EQ(host.redisplays, 1);
}

} // namespace
} // namespace chromalog::test
