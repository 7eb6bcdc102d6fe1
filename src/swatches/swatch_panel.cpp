#include "swatches/swatch_panel.h"

#include <algorithm>

namespace chromalog {

void SwatchPanel::storeViewCount() {
    if (view.connected()) storedCount = view.getNumberOfColors();
}

void SwatchPanel::showStoredName() {
    if (const auto name = terminatedListName(storedName)) nameField->setText(*name);
}

void SwatchPanel::storeName(const StoredName& name) {
    std::copy_n(name.bytes.begin(), std::min<std::size_t>(name.bytes.size(), 255), storedName.begin() + 1);
    storedName[0] = name.length;
}

void SwatchPanel::showFromTheTop() {
    view.setSelectedColor(0);
    view.setStartColor(0);
    view.setScrollSize();
    scroller->setVerticalScroller(0);
}

void SwatchPanel::redisplay() {
    view.contentsChanged();
}

} // namespace chromalog
