#pragma once

#include "spaces/ciede2000_bound.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <vector>

namespace chromalog {

struct ColourMatch {
    std::size_t index = 0; ///< in the list that the grid was made of
    double difference = 0; ///< CIEDE2000

    friend bool operator==(const ColourMatch&, const ColourMatch&) = default;
};

/// The colours of a list in cells of Lab, halved until few are in one, so that most of a list is left out
/// unseen. Every answer is exactly that of comparing with each colour by ciede2000. Made for up to 5,000
/// colours: a question takes microseconds. It keeps no reference to the list and may be asked by several
/// threads. Components are clamped to -1000..1000, no number counts as 0.
class LabGrid {
  public:
    LabGrid() = default; ///< of no colours
    explicit LabGrid(std::span<const Lab> colours);

    std::size_t size() const { return order_.size(); }

    /// The nearest colour that differs by at most `within`; of equally near ones the first of the list.
    std::optional<ColourMatch> nearest(const Lab& colour,
                                       double within = std::numeric_limits<double>::infinity()) const;
    /// The nearest so many, nearest first; of equally near ones the first of the list.
    std::vector<ColourMatch> nearestFew(const Lab& colour, std::size_t count) const;
    /// All that differ by at most `radius`, in the order of the list.
    std::vector<ColourMatch> within(const Lab& colour, double radius) const;

  private:
    /// Equal colours of the list stand together: one comparison for all.
    struct Entry {
        LabBox box;                        ///< of the one colour
        std::uint32_t first = 0, last = 0; ///< of order_
    };
    struct Cell {
        LabBox box;
        std::uint32_t first = 0, last = 0;           ///< of entries_
        std::uint32_t firstHalf = 0, secondHalf = 0; ///< of cells_; 0 where the cell is not halved
    };
    /// A walk through the cells that comes by every entry which differs by at most `limit`.
    template <typename Visit> struct Walk;

    std::uint32_t addCell(std::uint32_t first, std::uint32_t last);
    template <typename Visit> void walk(const Lab& colour, double& limit, Visit visit) const;

    std::vector<std::uint32_t> order_; ///< indices of the list, those of an entry ascending
    std::vector<Entry> entries_;
    std::vector<Cell> cells_; ///< the first holds all
};

/// For each colour of a list, the nearest of a grid that differs by at most `within`: what only one list has
/// has none.
std::vector<std::optional<ColourMatch>> nearestOfEach(std::span<const Lab> colours, const LabGrid& grid,
                                                      double within);

/// For each colour of a list, the earlier one that makes it superfluous: kept itself, and at most `radius`
/// away. Kept colours have none.
std::vector<std::optional<ColourMatch>> nearDoubles(std::span<const Lab> colours, double radius);

} // namespace chromalog
