#pragma once

#include "desktop/form.h"
#include "record/list_name.h"
#include "swatches/list_edits.h"
#include "swatches/swatch_list_view.h"

#include <cstdint>
#include <string_view>

namespace chromalog {

/// A list with its controls and its part of the record.
struct SwatchPanel {
    ListRecords records;       ///< the array in the record
    std::int16_t& storedCount; ///< in the record, as is the next
    ListNameField storedName;
    bool feedsFirstColor; ///< its selected swatch becomes the first working colour
    CSwatchList view;
    Outlet<ScrollView> scroller;
    Outlet<TextField> nameField, searchField, found;
    Outlet<Stepper> hitStepper;
    Outlet<Menu> menu;
    Outlet<Button> load{}, append{}; ///< the buttons

    void takeStoredCount() { view.setNumberOfColors(storedCount); }
    void storeViewCount();             ///< nothing where the view is not connected
    void showStoredName();             ///< nothing where it is not ASCII
    void storeName(const StoredName&); ///< of a file; what the field shows is another matter
    void showFromTheTop();             ///< the first row, selected
    void redisplay();                  ///< and new rows for assistive technology
};

} // namespace chromalog
