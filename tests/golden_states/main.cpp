// Replays scripts and compares what they leave with what is stored.
#include "golden_states/compare.h"
#include "golden_states/replay.h"
#include "golden_states/store.h"

#include <cstring>
#include <filesystem>
#include <iostream>

namespace chromalog::golden {
namespace {

const Store kStore(GOLDEN_STATES);
constexpr const char* kTests = "tests";

Record replayNamed(const std::string& name, Forms forms) {
    return name == kTests ? replayTests() : replay(name, forms);
}

/// Prints the differences; how many there are.
std::size_t tell(const std::string& name, const std::vector<std::string>& found) {
    constexpr std::size_t most = 60;
    for (std::size_t i = 0; i < std::min(found.size(), most); ++i)
        std::cout << name << ", " << found[i] << '\n';
    if (found.size() > most) std::cout << name << ": and " << found.size() - most << " more\n";
    return found.size();
}

int check(const std::string& name, Forms forms) {
    const Record stored = kStore.read(name);
    if (stored.empty()) std::cout << name << " has no stored states yet\n";
    const auto extent = forms == Forms::frozen ? Extent::everything : Extent::withoutLayout;
    const auto found = differences(stored, replayNamed(name, forms), extent);
    if (tell(name, found) == 0 && !stored.empty()) return 0;
    std::cout << "Where a result is meant to change: say so in CHANGELOG.md, then run dev/accept_states.\n";
    return 1;
}

/// In every language but English, which the stored states are in.
int checkLanguages(const std::vector<std::string>& names) {
    std::size_t found = 0;
    for (const std::string& name : names)
        for (const char* language : {"de", "fr", "ar-XB"})
            found += tell(
                name + " in " + language,
                differences(kStore.read(name), replay(name, Forms::frozen, language), Extent::withoutTexts));
    return found == 0 ? 0 : 1;
}

int list() {
    std::cout << kTests << '\n';
    for (const std::string& name : scriptNames())
        std::cout << name << '\n';
    return 0;
}

/// What was recorded into the folder; scripts that were not keep their stored states.
Records recorded(const std::string& folder, const Records& stored) {
    auto names = scriptNames();
    names.push_back(kTests);
    Records records;
    for (const std::string& name : names)
        if (const Record now = readRecord(folder + "/" + name); !now.empty())
            records[name] = now;
        else if (stored.contains(name))
            records[name] = stored.at(name);
    return records;
}

/// Tells what differs from the stored states; scripts and keys that are new do not.
int compare(const std::string& folder) {
    const Records before = kStore.readAll(), now = recorded(folder, before);
    std::size_t found = 0;
    for (const auto& [name, record] : before)
        found += now.contains(name) ? tell(name, differences(record, now.at(name), Extent::everything))
                                    : tell(name, {"is gone"});
    return found == 0 ? 0 : 1;
}

int accept(const std::string& folder) {
    kStore.writeAll(recorded(folder, kStore.readAll()));
    return 0;
}

int usage() {
    std::cerr
        << "replay_states list | check NAME | check-built-in NAME | check-languages NAME... | record FOLDER "
           "NAME | compare FOLDER | accept FOLDER\n";
    return 2;
}

int run(const std::vector<std::string>& words) {
    const std::string verb = words.empty() ? "" : words[0];
    if (words.size() == 1 && verb == "list") return list();
    if (words.size() == 2 && verb == "check") return check(words[1], Forms::frozen);
    if (words.size() == 2 && verb == "check-built-in") return check(words[1], Forms::builtIn);
    if (words.size() > 1 && verb == "check-languages")
        return checkLanguages({words.begin() + 1, words.end()});
    if (words.size() == 2 && verb == "compare") return compare(words[1]);
    if (words.size() == 2 && verb == "accept") return accept(words[1]);
    if (words.size() != 3 || verb != "record") return usage();
    writeRecord(replayNamed(words[2], Forms::frozen), words[1] + "/" + words[2]);
    return 0;
}

} // namespace
} // namespace chromalog::golden

int main(int argc, char** argv) {
    try {
        return chromalog::golden::run({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        std::cerr << "replay_states: " << error.what() << '\n';
        return 2;
    }
}
