#pragma once

#include "base/translated.h"
#include "colour/working_colours.h"
#include "comparison/nearest_swatches.h"
#include "comparison/result_list.h"

#include <memory>

namespace chromalog {

/// The five swatches of either list that are nearest to the second colour: a panel that floats above the
/// dialog and follows. A click selects the swatch in its list as a press there does; a double click or Return
/// makes it the second colour.
class NearestPanel {
  public:
    NearestPanel(Desktop& desktop, Outlet<Window>& dialog, WorkingColours& colours, SwatchPanels& panels,
                 NearestSwatches& nearest)
        : desktop_(desktop), dialog_(dialog), colours_(colours), panels_(panels), nearest_(nearest) {}

    void show();
    void follow(); ///< after a change of the second colour or of a list; nothing while it does not show

  private:
    static constexpr std::size_t kOfEach = 5;

    void load();
    ResultRow line(int row);
    void select(int row);
    void use(int row);

    Desktop& desktop_;
    Outlet<Window>& dialog_;
    WorkingColours& colours_;
    SwatchPanels& panels_;
    NearestSwatches& nearest_;
    std::vector<NearSwatch> found_;
    ResultList rows_{desktop_, translated("Nearest swatches"),
                     translated("Space selects the swatch in its list, Return makes it the second color")};
    Outlet<Window> nearestWindow;
    Outlet<ColorWell> nearestTo;
    Outlet<TextField> nearestNote;
    std::unique_ptr<Form> form_; ///< once it was asked for; after the outlets and the view
};

} // namespace chromalog
