#pragma once

#include "desktop/desktop.h"
#include "host/host_conversion.h"
#include "swatches/list_edits.h"
#include "swatches/swatch_list_view.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace chromalog {

enum class ListNumber { one, two };

/// One list with all that its commands change.
struct ListParts {
    CSwatchList& view;
    ScrollView& scroller;
    TextField& nameField;
    std::int16_t& storedCount;       ///< of the global record, as are the next
    std::uint8_t (&storedName)[256]; ///< length byte, then the characters
};

/// What the list commands ask of the dialog around them.
class ListCommandsDesk {
  public:
    virtual ~ListCommandsDesk() = default;
    virtual Desktop& desktop() = 0;
    virtual Window& getChromalogWindow() = 0;
    virtual ListParts list(ListNumber) = 0;
    virtual void setUndoablePosition(std::string_view labelKey) = 0;
    virtual ColorServicesProc colorServices() const = 0;
    virtual std::string colourBooksFolder() = 0; ///< asks the host for its version; empty: no book is found
};

/// The commands of the two lists: load, append, clear, sort and save, and the colour book loader. File panels
/// are sheets: what follows their answer runs later, from the modal loop.
class ListCommands {
  public:
    explicit ListCommands(ListCommandsDesk& desk) : desk_(desk) {}

    void loadSwatch(ListNumber);
    void appendSwatch(ListNumber);
    void killSwatch(ListNumber); ///< clears the view's count; the stored one stays
    void sortAlpha(ListNumber);
    void sortHue(ListNumber);
    void saveSwatch(ListNumber);
    /// Fills list 1 with a whole colour book. No step of undo, and the view keeps its count: kept.
    void loadASE();
    /// The first working colour and its name into the selected swatch of list 1.
    void writeToSwatch(const Colour& firstColor, std::string_view colorName);

    /// Every command under the name that a form's controls send; writeToSwatch: is the dialog's to add.
    std::vector<ActionEntry> actions();

    /// Reads a swatch file into a list from `start` on, and tells the view its count.
    void DispachSwatch(std::span<const std::uint8_t> data, CSwatchList&, std::int16_t start);

  private:
    void LoadSwatch(ListNumber, std::int16_t start);
    void swatchFileChosen(ListNumber, std::int16_t start, const std::string& path);
    void bookChosen(const std::string& path);

    ListCommandsDesk& desk_;
};

/// Where a list is saved: the chosen path with its extension, if any, replaced by ".aco".
std::string acoPath(std::string_view chosen);

/// A list's name into its stored form: at most 255 characters behind the length byte.
void storeListName(std::uint8_t (&stored)[256], const StoredName&);

} // namespace chromalog
