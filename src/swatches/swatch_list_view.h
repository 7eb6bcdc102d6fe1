#pragma once

#include "base/translated.h"
#include "desktop/desktop.h"
#include "desktop/view.h"
#include "record/list_store.h"
#include "swatches/list_extras.h"
#include "swatches/search.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace chromalog {

class CSwatchList;
struct StoredName;

/// A colour of 16-bit channels.
struct RGBColor {
    std::uint16_t red = 0, green = 0, blue = 0;
};

/// What a swatch list asks of the dialog around it.
class CSwatchListDelegate {
  public:
    virtual ~CSwatchListDelegate() = default;
    virtual Desktop& desktop() = 0;
    /// The list's swatch becomes the first working colour; only list 1 feeds it.
    virtual void setFirstColor(CSwatchList&, std::int16_t index) = 0;
    /// A person asks for the swatch, of either list, as the first working colour; nothing past the last one.
    virtual void useAsFirstColor(CSwatchList&, std::int16_t index) = 0;
    /// True and the first colour's name where the colour equals the first colour exactly; else `nameOut` is
    /// left alone.
    virtual bool isFirstColorId(const Colour&, std::int16_t index, std::string& nameOut) = 0;
    virtual void activateKnobs(CSwatchList&, double hits) = 0; ///< a search ended with that many hits
    virtual void setUndoablePosition(std::string_view labelKey) = 0;
    virtual void contentsChanged(CSwatchList&) {}  ///< perhaps: its swatches or their count
    virtual void describeStep(std::string_view) {} ///< after a change: what undoing it does, in words
    virtual ListRecords list1Records() = 0;        ///< a search in any list terminates the names of list 1
    virtual ScrollView& scroller(CSwatchList&) = 0;
    virtual Menu& menu(CSwatchList&) = 0; ///< the list's context menu
    virtual ListExtras& extras(const CSwatchList&) {
        static ListExtras none;
        return none;
    }
    /// The hits of a search; what it does to names on its way is its own.
    virtual std::vector<FoundEntry> find(CSwatchList&, std::string_view text);
    /// `shift`: whether that key is held. False where none of the files could be taken.
    virtual bool filesDropped(CSwatchList&, const std::vector<std::string>& /*paths*/, bool /*shift*/) {
        return false;
    }
};

/// One swatch list as a column of rows: a patch, its name, a blue frame around the selected one. It owns no
/// swatch: it draws and edits the records of its array in place, under a count of its own. The count and the
/// selection are stored as told; every access to a record is clamped to the array.
class CSwatchList : public View {
  public:
    explicit CSwatchList(CSwatchListDelegate& delegate) : delegate_(delegate) {}

    void initWithFrame(const Rect& frame);
    void initFromControler(); ///< after the array and the count are set

    const char* className() const override { return "CSwatchList"; }
    bool isFlipped() const override { return true; }
    bool fromSwatch() const { return false; }
    void setScrollSize();                            ///< the frame's height fits all rows
    void sizeChanged() override { setScrollSize(); } ///< the clip may be higher than all rows
    void setScrollPos(float position);               ///< 0..1: sets and logs the first row; does not scroll
    /// Components 0..1 and alpha 1, in single precision.
    static void objRGBToCGColor(const RGBColor& color, float (&output)[4]);
    /// Loads the low 16 bits of a record's channels.
    static RGBColor bufferColorOf(const FCOStruct&);

    void contentsChanged(); ///< redisplay, and new rows for assistive technology

    const std::string& getSwatchName() const { return swatchListName; }
    void setSpokenName(std::string name) { spokenName_ = std::move(name); } ///< of the list, not of its file
    void setName(std::string name) { swatchListName = std::move(name); }
    void setSelectedColor(std::int16_t index) { selectcolor = index; }
    void setStartColor(std::int16_t index) { startcolor = index; }
    void setNumberOfColors(std::int16_t count) {
        nfcocolors = count;
        namesEndedFrom_ = kNoRow;
    }
    void setSwatchList(FCOStruct* first) { ///< the first of kListCapacity records
        mySwatch = first;
        namesEndedFrom_ = kNoRow;
    }
    std::int16_t getSelected() const { return selectcolor; }
    std::int16_t getStartColor() const { return startcolor; }
    std::int16_t getNumberOfColors() const { return nfcocolors; }

    /// All records of the array, shown or not.
    ConstListRecords records() const { return array(); }
    int shownRows() const { return clampedCount(nfcocolors); } ///< rows that may be read
    ConstListRecords shownRecords() const { return shownOf(array()); }
    /// The same for whoever writes to them, before the next draw.
    ListRecords recordsToChange() {
        namesEndedFrom_ = kNoRow;
        return array();
    }
    ListRecords shownRecordsToChange() { return shownOf(recordsToChange()); }

    void drawRect(Canvas&) override;
    void drawDisplayLayer(Canvas&) override; ///< marks, and the row that an open context menu means
    /// Appends the whole list as a swatch file of version 2.
    void saveSwatches(std::vector<std::uint8_t>& data) const;

    // Editing by mouse, keyboard and drags.
    void selectRow(std::int16_t row); ///< as a click does: selection, first colour, redisplay
    void mouseDown(const MouseEvent&) override;
    void rightMouseDown(const MouseEvent&) override;
    void mouseDragged(const MouseEvent&) override;
    void mouseUp(const MouseEvent& event) override { extras().released(event); }
    bool startsDrags() const override { return true; }
    bool acceptsFocus() const override { return true; }
    bool keyDown(const KeyEvent&) override;
    bool acceptsColourDrags() const override { return true; }
    DragOperation draggingEntered(const DragInfo&) override;
    bool performDragOperation(const DragInfo&) override;
    void draggingUpdated(const DragInfo& info) override { extras().draggedOver(&info); }
    void draggingExited() override { extras().draggedOver(nullptr); }
    bool acceptsFiles() const override { return true; }
    bool filesDropped(const std::vector<std::string>& paths, bool shift) override {
        return delegate_.filesDropped(*this, paths, shift);
    }
    bool refuses(const Colour&) const; ///< a drop of it: a swatch is almost the same
    void deleteEntry();
    /// Inserts a swatch without a name, or appends it; false and the limit alert where the list is full.
    bool addFcoColor(const Colour&, std::int16_t position);
    void moveSwatchColor(std::int16_t, std::int16_t) {}  ///< does nothing: kept in the interface
    void setColor(const Colour&, std::string_view name); ///< overwrites the selected swatch; name is UTF-8

    // Sorting, search and nearest colour.
    void sortSwatchList(std::string_view key); ///< "nom" or "color"
    void queryForColorsByName(std::string_view text);
    void jumpToColor(std::int64_t hit); ///< hit number, not clamped to the hits
    std::int16_t getNearColor(const Colour&, float& distance) const;
    const std::vector<FoundEntry>& hits() const { return lostAndFound; }
    std::uint64_t lastShown() const { return LastShown; }
    std::uint8_t direction() const { return sens; }

    Accessible accessible() const override;
    int accessibleRowCount() const override { return shownRows(); }
    AccessibleRow accessibleRow(int row) const override;
    std::optional<int> accessibleSelectedRow() const override;
    int accessibleRowAt(Point) const override;
    void selectAccessibleRow(int row) override { selectRow(static_cast<std::int16_t>(row)); }
    void scrollToShow(int row); ///< no further than it takes to show the row with its frame

  private:
    static constexpr int kNoRow = kListCapacity;

    ListRecords array() const { return mySwatch ? ListRecords(mySwatch, kListCapacity) : ListRecords(); }
    template <typename Records> Records shownOf(Records all) const {
        return all.first(std::min<std::size_t>(all.size(), shownRows()));
    }
    ListExtras& extras() const { return delegate_.extras(*this); }
    void moveSelected(int rows); ///< by one step of undo
    void markMenuRow(std::optional<int> row);
    StoredName droppedName(const Pasteboard&, const Colour&, int place) const;
    bool insertDropped(const Pasteboard&, const Colour&, std::int16_t drop); ///< false where the list is full
    std::string takeDrop(const DragInfo&); ///< what undoing it does, in words
    void refuseDropped(const FCOStruct* near);
    void drawRows(Canvas&);
    void drawRow(Canvas&, int row, FCOStruct&);
    void logScrollValue(double) const;

    CSwatchListDelegate& delegate_;
    RGBColor BufferColor;                 ///< scratch: the row being drawn or dragged
    std::int16_t nfcocolors = 0;          ///< the view's own count
    std::int16_t selectcolor = 0;         ///< selected row, not range-checked
    std::optional<int> menuRow_;          ///< while the context menu is open
    std::int16_t startcolor = 0;          ///< first row at the scroll position; drawing does not use it
    FCOStruct* mySwatch = nullptr;        ///< not owned
    int namesEndedFrom_ = kNoRow;         ///< a draw ended all names from this row on; nothing changed since
    std::vector<FoundEntry> lostAndFound; ///< hits of the last search, in list order
    std::uint64_t LAFindex = 0;           ///< reset by each search, not used otherwise
    std::uint64_t LAFCount = 0;           ///< number of hits
    std::uint64_t LastShown = 0;          ///< hit shown last
    std::uint8_t sens = 0;                ///< last step: 1 backwards, 0 forwards
    std::string spokenName_ = translated("Swatch list");
    std::string swatchListName; ///< file that was loaded into the list
};

} // namespace chromalog
