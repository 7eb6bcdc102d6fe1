#pragma once

#include "desktop/colour_place.h"
#include "desktop/controls.h"
#include "desktop/outlet.h"
#include "desktop/view.h"

#include <functional>
#include <memory>
#include <string_view>
#include <variant>
#include <vector>

namespace chromalog {

/// One row of a controller's table of outlets: an object of that name in the interface file is connected to
/// it.
struct OutletEntry {
    std::string_view name;
    std::variant<Outlet<TextField>*, Outlet<Button>*, Outlet<ColorWell>*, Outlet<Slider>*, Outlet<Stepper>*,
                 Outlet<LevelIndicator>*, Outlet<TextView>*, Outlet<ScrollView>*, Outlet<RadioMatrix>*,
                 Outlet<RowList>*, Outlet<Menu>*, Outlet<Window>*, View*>
        target;
    bool extra = false; ///< an interface file without it is no remark: older ones do not have it
};

/// One row of a controller's table of actions: what a control of the interface file sends, colon included.
struct ActionEntry {
    std::string_view name;
    std::function<void()> run;
};

struct FormOwner {
    std::vector<OutletEntry> outlets;
    std::vector<ActionEntry> actions;
    ColourOperations* colours = nullptr; ///< of the colours that the form shows, if it shows any
};

/// A loaded interface file. Its controls live as long as it does; destroying it closes its window.
class Form {
  public:
    virtual ~Form() = default;
};

} // namespace chromalog
