#pragma once

#include "palettes/palette.h"

#include <cstdint>

namespace chromalog {

/// A folder whose palettes the library shows.
struct LibraryFolder {
    std::string label; ///< for people; empty for the person's own
    std::string path;
};

struct LibraryEntry {
    std::string label; ///< the file's name, with its folder's where that has one
    std::string path;
    Palette palette;       ///< its first colours
    std::size_t count = 0; ///< colours of the file
};

/// Palettes in folders. One of them is the person's own and takes more; the others are only read.
class PaletteLibrary {
  public:
    /// `own` may not exist yet; empty: there is none, and nothing can be kept.
    PaletteLibrary(std::string own, std::vector<LibraryFolder> others);

    /// What can be read, by folder and name. Files that are none of the known kinds are left out, and all
    /// beyond a few hundred.
    std::vector<LibraryEntry> entries() const;
    /// Differs where files came, went or changed since.
    std::uint64_t state() const;

    /// Writes a palette to a file of its own in the person's folder, which is made where it is missing; the
    /// file's name. Nothing older is replaced. Throws PaletteError with one line.
    std::string keep(const Palette&) const;

  private:
    std::vector<LibraryFolder> folders_; ///< the person's own first
};

/// Where other programs keep palettes for all and for this person, of those that are there.
std::vector<LibraryFolder> foldersOfOtherPrograms(const std::string& home);

} // namespace chromalog
