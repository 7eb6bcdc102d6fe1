#pragma once

#include "record/global_record.h"
#include "record/host_conversion.h"
#include "swatches/added_colours.h"
#include "swatches/list_commands.h"
#include "swatches/nearest_display.h"
#include "swatches/row_gestures.h"
#include "swatches/search_knobs.h"
#include "swatches/swatch_panel.h"

#include <array>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace chromalog {

/// What the lists ask of the dialog around them: what they cannot know.
class SwatchPanelsDelegate {
  public:
    virtual ~SwatchPanelsDelegate() = default;
    virtual void setUndoablePosition(std::string_view labelKey) = 0; ///< before a change of a list
    /// After it: what undoing the latest step does, in words, and the one before it unless that is empty.
    virtual void describeSteps(std::string_view latest, std::string_view before) = 0;
    virtual void setFirstColor(const FCOStruct&, const std::string& name) = 0; ///< name: UTF-8
    /// True and the first colour's name where the colour equals the first colour exactly; else `nameOut` is
    /// left alone.
    virtual bool isFirstColorId(const Colour&, std::int16_t index, std::string& nameOut) = 0;
    virtual std::string hostBooks() = 0; ///< the host's folder of colour books; empty: no book is found
};

/// Both lists with all that works on them. They live as long as the dialog.
class SwatchPanels : CSwatchListDelegate {
  public:
    /// `dialog` carries the sheets of the commands.
    SwatchPanels(GlobalRecord&, Desktop&, Outlet<Window>& dialog, ColorServicesProc, SwatchPanelsDelegate&);

    SwatchPanel one, two;
    ListCommands commands;
    SearchKnobs search;
    NearestDisplay nearest;

    std::array<SwatchPanel*, 2> both() { return {&one, &two}; }
    RowGestures& rows(const CSwatchList& list) { return &list == &one.view ? rowsOne_ : rowsTwo_; }

    std::function<Colour()> secondColour; ///< what lists are sorted by difference from
    std::function<void()> listsChanged; ///< perhaps: the swatches of one of them, their names or their count
    /// Takes files that are dropped on a list, of whatever kind; false where they cannot be read.
    std::function<bool(SwatchPanel&, const std::vector<std::string>& paths)> importFiles;

    std::vector<OutletEntry> table(); ///< under the names that interface files give them
    std::vector<ActionEntry> actions();
    void start(); ///< after the outlets are connected and the record is read

    void storeViewCounts();
    void takeStoredCounts();
    void showRecord(); ///< after the record was swapped for another
    void showNearest(const Colour& secondColor);
    void setNeedsDisplay();
    /// Appends colours to one of the lists, as addColours does.
    bool add(SwatchPanel& panel, std::span<const AddedColour> added, std::string_view labelKey) {
        return addColours(*this, panel.view, added, labelKey);
    }
    /// Appends copies of whole records, as addRecords does.
    bool addRecords(SwatchPanel& panel, std::span<const FCOStruct> added, std::string_view labelKey) {
        return chromalog::addRecords(*this, panel.view, added, labelKey);
    }
    void erase(SwatchPanel&, Rows, std::string_view labelKey, const std::string& words); ///< by one step
    /// Selects that row alone and brings it into view. `uses`: the swatch is taken as by a press on it.
    void select(SwatchPanel&, int row, bool uses);
    void editSwatch(); ///< the selected swatch of list 1 becomes the first colour
    /// The selected swatch's name where the source is one of the lists.
    std::optional<std::string> selectedName(const DragSource*);

  private:
    SwatchPanel& panelOf(const CSwatchList&);

    Desktop& desktop() override { return desktop_; }
    void setFirstColor(CSwatchList&, std::int16_t index) override;
    void useAsFirstColor(CSwatchList&, std::int16_t index) override;
    bool isFirstColorId(const Colour& colour, std::int16_t index, std::string& name) override {
        return delegate_.isFirstColorId(colour, index, name);
    }
    void activateKnobs(CSwatchList& list, double hits) override { search.activateKnobs(panelOf(list), hits); }
    void setUndoablePosition(std::string_view label) override { delegate_.setUndoablePosition(label); }
    void contentsChanged(CSwatchList& list) override {
        if (&list == &one.view) nearest.follow(list);
        if (listsChanged) listsChanged();
    }
    void describeStep(std::string_view words) override { delegate_.describeSteps(words, {}); }
    ListRecords list1Records() override { return one.records; }
    ScrollView& scroller(CSwatchList& list) override { return *panelOf(list).scroller; }
    Menu& menu(CSwatchList& list) override { return *panelOf(list).menu; }
    ListExtras& extras(const CSwatchList& list) override { return rows(list); }
    std::vector<FoundEntry> find(CSwatchList&, std::string_view text) override;
    bool filesDropped(CSwatchList&, const std::vector<std::string>& paths, bool shift) override;
    void offerMenus();

    Desktop& desktop_;
    const ColorServicesProc services_;
    SwatchPanelsDelegate& delegate_;
    RowGestures rowsOne_, rowsTwo_;
};

} // namespace chromalog
