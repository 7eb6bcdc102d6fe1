#pragma once

#include "golden_states/record.h"

#include <map>
#include <string>

namespace chromalog::golden {

/// Every script's record by its name; "tests" holds those of the tests of whole picks.
using Records = std::map<std::string, Record>;

/// The folder with the stored records: a text file each, and base.txt, the state from which all others are
/// told.
class Store {
  public:
    explicit Store(std::string folder) : folder_(std::move(folder)) {}

    Record read(const std::string& name) const; ///< empty where there is none
    Records readAll() const;

    /// Replaces the folder's contents. The first state of "anywhere/fresh" becomes the new base.
    void writeAll(const Records&) const;

  private:
    std::string pathOf(const std::string& name) const { return folder_ + "/" + name + ".txt"; }
    json base() const;

    const std::string folder_;
};

/// Records on their way to a store, whole and quick to read.
void writeRecord(const Record&, const std::string& path);
Record readRecord(const std::string& path); ///< empty where there is no such file

} // namespace chromalog::golden
