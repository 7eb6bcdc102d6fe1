#pragma once

#include "desktop/menu_item.h"

#include <functional>

class QWidget;

namespace chromalog {

/// Gives the widget a context menu of these items, asked for at every opening; a field's stand below those
/// that it has.
void addContextItems(QWidget&, std::function<MenuItems()>);

} // namespace chromalog
