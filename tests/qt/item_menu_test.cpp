// A menu made of items.
#include "qt/desktop_fixture.h"

#include "qt/item_menu.h"

#include <QMenu>

using namespace chromalog;
using namespace chromalog::test;

namespace {

class ItemMenuTest : public DesktopTest {};

TEST_F(ItemMenuTest, TitlesStandAsTheyAreAndDisabledItemsCannotBeChosen) {
    QWidget parent;
    int runs = 0;
    MenuItems items{{"Black & White", "", [&runs] { ++runs; }}, {"Later", "", [&runs] { ++runs; }}};
    items[1].enabled = false;
    const QMenu* menu = makeMenu(items, parent);
    ASSERT_EQ(menu->actions().size(), 2);
    EXPECT_EQ(menu->actions()[0]->text().toStdString(), "Black && White") << "no mnemonic";
    EXPECT_TRUE(menu->actions()[0]->isEnabled());
    EXPECT_FALSE(menu->actions()[1]->isEnabled());
    for (QAction* action : menu->actions())
        action->trigger();
    EXPECT_EQ(runs, 1);
}

} // namespace
