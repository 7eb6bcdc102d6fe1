#include "dialog/stored_lists.h"

#include "base/translated.h"
#include "prefs/preferences_file.h"

#include <cerrno>
#include <exception>
#include <filesystem>

#include <fcntl.h>
#include <unistd.h>

namespace chromalog {
namespace {

/// Why nothing could be stored in a folder; empty where it can.
std::string refusalOf(const std::string& folder) {
    std::error_code error;
    if (std::filesystem::create_directories(folder, error); error) return folder + ": " + error.message();
    const bool may = ::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
    return may ? std::string() : folder + ": " + reasonOf(errno);
}

} // namespace

std::string StoredLists::path() const {
    desktop_.finishBackground();
    return applicationDataDirectory(desktop_.applicationsDirectory());
}

void StoredLists::say(StatusLine::About about, std::string text) {
    desktop_.statusLine().say(about, std::move(text));
}

bool StoredLists::open(GlobalRecord& record, bool skip) {
    const std::string file = path();
    if (file.empty()) {
        say(StatusLine::About::storing, translated("The lists are not stored: there is no home folder"));
        return false;
    }
    const std::string refusal = refusalOf(folderOf(file));
    if (!refusal.empty())
        say(StatusLine::About::storing, translated("The lists cannot be stored in %1", refusal));
    store_.emplace(file);
    if (store_->othersOpen())
        say(StatusLine::About::otherPicks, translated("Another pick is open on the same lists"));
    if (!skip) return read(record);
    store_->skip();
    return false;
}

bool StoredLists::read(GlobalRecord& record) {
    const bool wasRead = readPreferences(record, *store_);
    if (!wasRead && errno != ENOENT && errno != ENOTDIR)
        say(StatusLine::About::storing,
            translated("The stored lists could not be read: %1", reasonOf(errno)));
    return wasRead;
}

StoredLists::~StoredLists() {
    try {
        desktop_.finishBackground();
    } catch (...) { // the pick ends; there was no memory to say how the write went
    }
}

void StoredLists::save(const GlobalRecord& record, Flush flush) {
    path(); // after the write before; a folder that went away comes back
    if (!store_) return;
    if (flush == Flush::toDisk || !beginWrite(record))
        tell(store_->write(preferencesImage(record), kPreferencesZeros, flush));
}

/// False where there was no memory or no thread for it.
bool StoredLists::beginWrite(const GlobalRecord& record) try {
    const auto image = preferencesImage(record);
    copy_.assign(image.begin(), image.end());
    desktop_.inBackground([this] { outcome_ = writeCopy(); }, [this] { tell(outcome_); });
    return true;
} catch (const std::exception&) {
    return false;
}

StoreOutcome StoredLists::writeCopy() noexcept try {
    return store_->write(copy_, kPreferencesZeros, Flush::later);
} catch (...) {
    return {ENOMEM};
}

void StoredLists::tell(const StoreOutcome& outcome) {
    if (outcome.error != 0) {
        const bool busy = outcome.error == EWOULDBLOCK;
        const std::string why =
            busy ? translated("another program is writing them") : reasonOf(outcome.error);
        return say(StatusLine::About::storing,
                   outcome.notKept
                       ? translated("The lists were not stored: what is there cannot be kept: %1", why)
                       : translated("The lists were not stored: %1", why));
    }
    desktop_.statusLine().takeBack(StatusLine::About::storing);
    if (!outcome.kept.empty())
        say(StatusLine::About::keptCopies, translated("Unread lists were kept (%1)", outcome.kept));
}

} // namespace chromalog
