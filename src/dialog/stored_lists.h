#pragma once

#include "desktop/desktop.h"
#include "prefs/preferences_store.h"
#include "record/global_record.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace chromalog {

/// The lists as they are stored between picks: reads them as a pick begins and writes them, and tells the
/// person on the status line what went wrong or was kept.
class StoredLists {
  public:
    explicit StoredLists(Desktop& desktop) : desktop_(desktop) {}
    ~StoredLists(); ///< after the write that is under way
    StoredLists(const StoredLists&) = delete;
    StoredLists& operator=(const StoredLists&) = delete;

    /// As the pick begins. Where the file is not skipped it is laid over the record: true where there was one
    /// that could be read.
    bool open(GlobalRecord&, bool skip);
    /// A write that need not reach the disk goes on beside the event loop, from a copy; any other, and
    /// whatever comes after, waits for it.
    void save(const GlobalRecord&, Flush);

    /// The preferences file, which nobody is writing now; its folder is made where it is missing. Empty where
    /// there is no place for it.
    std::string path() const;

  private:
    bool read(GlobalRecord&);
    bool beginWrite(const GlobalRecord&);
    StoreOutcome writeCopy() noexcept;
    void tell(const StoreOutcome&);
    void say(StatusLine::About, std::string text);

    Desktop& desktop_;
    std::optional<PreferencesStore> store_; ///< none where there is no place for it
    std::vector<std::uint8_t> copy_;        ///< of the record's part that is stored
    StoreOutcome outcome_;                  ///< of the copy's write
};

} // namespace chromalog
