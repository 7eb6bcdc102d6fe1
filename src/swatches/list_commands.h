#pragma once

#include "desktop/desktop.h"
#include "record/host_conversion.h"
#include "swatches/swatch_panel.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace chromalog {

/// What the commands work with. All of it lives longer than they do.
struct ListCommandsParts {
    SwatchPanel &one, &two;
    Desktop& desktop;
    Outlet<Window>& dialog; ///< carries the sheets
    ColorServicesProc services;
    std::function<void(std::string_view labelKey)> setUndoablePosition;
    std::function<std::string()> hostBooks; ///< asks the host for its version; empty: no book is found
    /// After a change: what undoing the latest step does, in words, and the one before it.
    std::function<void(std::string_view latest, std::string_view before)> describeSteps =
        [](std::string_view, std::string_view) {};
};

/// What a file does to a list.
enum class FileWay { load, append };

/// The commands of the two lists: load, append, clear, sort and save, and the colour book loader. File panels
/// are sheets: what follows their answer runs later, from the modal loop.
class ListCommands {
  public:
    explicit ListCommands(ListCommandsParts parts) : parts_(std::move(parts)) {}

    void loadSwatch(SwatchPanel&);
    void appendSwatch(SwatchPanel&);
    void killSwatch(SwatchPanel&); ///< clears the view's count; the stored one stays
    void sortAlpha(SwatchPanel&);
    void sortHue(SwatchPanel&);
    void saveSwatch(SwatchPanel&);
    /// A file that a person names without a panel: one step, and none where it cannot be read.
    void takeFile(SwatchPanel&, const std::string& path, FileWay);
    /// Fills list 1 with a whole colour book. No step of undo, and the view keeps its count: kept.
    void loadASE();
    /// The first working colour and its name into the selected swatch of list 1.
    void writeToSwatch(const Colour& firstColor, std::string_view colorName);

    /// Every command under the name that a form's controls send; writeToSwatch: is the dialog's to add.
    std::vector<ActionEntry> actions();

    /// Reads a swatch file into a list from `start` on, and tells the view its count.
    void DispachSwatch(std::span<const std::uint8_t> data, CSwatchList&, std::int16_t start);

  private:
    /// What a load and an append do otherwise alike.
    struct Way {
        enum class Steps { one, two };
        bool appends;       ///< else it loads
        std::int16_t start; ///< the first row
        Steps steps = Steps::two;
    };
    void chooseSwatchFile(SwatchPanel&, Way);
    void swatchFileChosen(SwatchPanel&, Way, const std::string& path);
    void bringIn(SwatchPanel&, Way, const std::string& path, std::span<const std::uint8_t> data);
    void bookChosen(const std::string& path);

    ListCommandsParts parts_;
};

/// Where a list is saved: the chosen path with its extension, if any, replaced by ".aco".
std::string acoPath(std::string_view chosen);

} // namespace chromalog
