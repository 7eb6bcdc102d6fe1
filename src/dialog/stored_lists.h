#pragma once

#include "desktop/desktop.h"
#include "prefs/preferences_store.h"
#include "record/global_record.h"

#include <optional>
#include <string>

namespace chromalog {

/// The lists as they are stored between picks: reads them as a pick begins and writes them, and tells the
/// person on the status line what went wrong or was kept.
class StoredLists {
  public:
    explicit StoredLists(Desktop& desktop) : desktop_(desktop) {}

    /// As the pick begins. Where the file is not skipped it is laid over the record: true where there was one
    /// that could be read.
    bool open(GlobalRecord&, bool skip);
    void save(const GlobalRecord&, Flush);

    /// The preferences file; its folder is made where it is missing. Empty where there is no place for it.
    std::string path() const;

  private:
    bool read(GlobalRecord&);
    void tell(const StoreOutcome&);
    void say(StatusLine::About, std::string text);

    Desktop& desktop_;
    std::optional<PreferencesStore> store_; ///< none where there is no place for it
};

} // namespace chromalog
