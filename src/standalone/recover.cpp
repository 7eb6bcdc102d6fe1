#include "standalone/recover.h"

#include "files/real_file.h"
#include "prefs/data_directory.h"
#include "prefs/kept_copies.h"
#include "prefs/preferences_layout.h"
#include "prefs/recover_copy.h"
#include "standalone/standard_streams.h"

#include <cstdlib>
#include <filesystem>
#include <iostream>

namespace chromalog::standalone {
namespace {

constexpr int kDone = 0, kMistake = 2;

/// Where the plug-in keeps them in a pick with the same options and environment.
std::string preferencesFile(const RecoverRequest& request) {
    std::string folder = request.folder;
    const char* named = std::getenv("CHROMALOG_DATA_DIR");
    if (folder.empty() && named) folder = named;
    if (folder.empty()) folder = userApplicationsDirectory();
    if (folder.empty()) return {};
    return folder.append("/").append(kPreferencesFolder).append(kPreferencesName);
}

int complain(const std::string& what) {
    say(what);
    return kMistake;
}

int done() {
    const std::string failure = flushStandardOutput();
    return failure.empty() ? kDone : complain(failure);
}

/// Why the copies beside the file cannot be looked for; empty where they can, or no folder is there yet.
std::string unreadable(const std::string& file) {
    const std::string folder = folderOf(file);
    std::error_code error;
    const std::filesystem::directory_iterator entries(folder, error);
    if (!error || error == std::errc::no_such_file_or_directory) return {};
    return "cannot read " + folder + ": " + error.message();
}

int list(const std::string& file) {
    const auto copies = keptCopies(file);
    for (const KeptCopy& copy : copies)
        std::cout << copy.name << "  " << (copy.lists ? describe(*copy.lists) : "damaged") << '\n';
    if (copies.empty()) say("no earlier lists are kept beside " + file);
    return done();
}

} // namespace

int runRecover(const RecoverRequest& request) {
    const std::string file = preferencesFile(request);
    if (file.empty()) return complain("there is no home folder, and no --data-dir");
    if (const std::string why = unreadable(file); !why.empty()) return complain(why);
    if (request.list) return list(file);
    const Recovery recovery = recoverCopy(file, request.name);
    if (!recovery.problem.empty()) return complain(recovery.problem);
    std::cout << "brought back " << request.name;
    if (!recovery.kept.empty()) std::cout << "; the lists that were there are kept as " << recovery.kept;
    std::cout << '\n';
    return done();
}

} // namespace chromalog::standalone
