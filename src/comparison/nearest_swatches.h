#pragma once

#include "spaces/lab_grid.h"
#include "swatches/swatch_panels.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace chromalog {

/// A swatch of one of the lists and how far it is from the colour that was asked for.
struct NearSwatch {
    int list = 0; ///< 0 or 1
    int row = 0;
    double difference = 0; ///< CIEDE2000

    friend bool operator==(const NearSwatch&, const NearSwatch&) = default;
};

/// Finds swatches near a colour in both lists. What it searches in is made when it is asked for the first
/// time, and again when it is asked after a list has changed: while nobody asks it costs nothing.
class NearestSwatches {
  public:
    explicit NearestSwatches(SwatchPanels& panels) : panels_(panels) {}

    void listsChanged() { stale_ = true; } ///< perhaps

    /// So many of one list (0 or 1), nearest first.
    std::vector<NearSwatch> few(const Colour&, int list, std::size_t count);
    /// The nearest of both lists, of equally near ones that of list 1; nothing where both are empty.
    std::optional<NearSwatch> nearest(const Colour&);

    SwatchPanel& panelOf(const NearSwatch& swatch) {
        SwatchPanel* const panel = panels_.both()[sideOf(swatch)];
        return *panel;
    }
    const FCOStruct* recordOf(const NearSwatch&); ///< null where it is gone

  private:
    static std::size_t sideOf(const NearSwatch& swatch) { return static_cast<std::size_t>(swatch.list); }
    void refresh();

    struct Side {
        std::uint64_t mark = 0; ///< of the list that the grid was made of
        LabGrid grid;
    };
    SwatchPanels& panels_;
    std::array<Side, 2> sides_;
    bool made_ = false, stale_ = true;
};

} // namespace chromalog
