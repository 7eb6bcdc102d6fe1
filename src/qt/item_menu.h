#pragma once

#include "desktop/menu_item.h"

class QMenu;
class QWidget;

namespace chromalog {

/// A menu of these items; it goes away once it has closed.
QMenu* makeMenu(const MenuItems&, QWidget& parent);

/// Puts the items behind those that the menu has.
void addItems(QMenu&, const MenuItems&);

} // namespace chromalog
