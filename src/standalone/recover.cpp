#include "standalone/recover.h"

#include "prefs/data_directory.h"
#include "prefs/kept_copies.h"
#include "prefs/preferences_layout.h"
#include "prefs/recover_copy.h"
#include "standalone/standard_streams.h"

#include <cstdlib>
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

int list(const std::string& file) {
    const auto copies = keptCopies(file);
    for (const KeptCopy& copy : copies)
        std::cout << copy.name << "  " << (copy.lists ? describe(*copy.lists) : "damaged") << '\n';
    if (copies.empty()) std::cerr << "chromalog: no earlier lists are kept beside " << file << '\n';
    return done();
}

} // namespace

int runRecover(const RecoverRequest& request) {
    const std::string file = preferencesFile(request);
    if (file.empty()) return complain("there is no home folder, and no --data-dir");
    if (request.list) return list(file);
    const Recovery recovery = recoverCopy(file, request.name);
    if (!recovery.problem.empty()) return complain(recovery.problem);
    std::cout << "brought back " << request.name;
    if (!recovery.kept.empty()) std::cout << "; the lists that were there are kept as " << recovery.kept;
    std::cout << '\n';
    return done();
}

} // namespace chromalog::standalone
