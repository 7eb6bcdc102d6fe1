#include "golden_states/capture.h"

#include "golden_states/digests.h"

#include <algorithm>
#include <fstream>
#include <optional>
#include <regex>

namespace chromalog::golden {
namespace {

namespace fs = std::filesystem;

/// What the test puts there for the program, and what the toolkit keeps for itself.
bool isSurroundings(const std::string& name) {
    return name == "script" || name == "run" || name == "config" || name == "home";
}

std::optional<json> readState(const std::string& path) {
    if (!path.ends_with(".json")) return std::nullopt;
    std::ifstream in(path);
    const json state = json::parse(in, nullptr, false);
    if (!state.is_object() || !state.contains("outlets")) return std::nullopt;
    return state;
}

/// Copies of a file, and what is said of them, tell when they were made.
std::string withoutDates(const std::string& text) {
    static const std::regex date(R"(\d{8}T\d{6}(?=Z)|\d{4}-\d\d-\d\d \d\d:\d\d(:\d\d)?)");
    static const std::regex numbered("DATEZ-\\d+"); // of several within a second
    return std::regex_replace(std::regex_replace(text, date, "DATE"), numbered, "DATEZ");
}

/// Two copies that differ in their dates alone are told apart by their order.
void addFile(Record& files, Part file) {
    while (findPart(files, file.kind, file.where, file.name))
        file.name += '+';
    files.push_back(std::move(file));
}

std::string inOneLine(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words)
        line += (line.empty() ? "" : " ") + word;
    return line;
}

} // namespace

Capture::Capture(std::string folder) : folder_(std::move(folder)), before_(files()) {}

std::map<std::string, Capture::Stamp> Capture::files() const {
    std::map<std::string, Stamp> found;
    for (auto each = fs::recursive_directory_iterator(folder_); each != fs::end(each); ++each) {
        if (each.depth() == 0 && isSurroundings(each->path().filename()))
            each.disable_recursion_pending();
        else if (each->is_regular_file())
            found[fs::relative(each->path(), folder_)] = {each->last_write_time(), each->file_size()};
    }
    return found;
}

std::string Capture::steady(std::string text) const {
    for (auto at = text.find(folder_); at != std::string::npos; at = text.find(folder_, at))
        text = text.substr(0, at) + '$' + text.substr(at + folder_.size());
    return withoutDates(text);
}

Record Capture::after(const std::string& where, const std::vector<std::string>& options,
                      const std::string& script, const ProgramResult& result) const {
    Record states, others;
    const auto now = files();
    for (const auto& [name, stamp] : now) {
        if (const auto old = before_.find(name); old != before_.end() && old->second == stamp) continue;
        const std::string path = folder_ + "/" + name;
        if (const auto state = readState(path))
            states.push_back(
                {Part::Kind::state, where, name, json::parse(steady(stateDigest(*state).dump()))});
        else
            addFile(others, {Part::Kind::file, where, withoutDates(name), fileDigest(path)});
    }
    for (const auto& [name, stamp] : before_)
        if (!now.contains(name)) addFile(others, {Part::Kind::file, where, withoutDates(name), "removed"});
    std::ranges::stable_sort(states, {}, [&](const Part& state) { return script.find(state.name); });
    Record all{{Part::Kind::run,
                where,
                "",
                {{"options", steady(inOneLine(options))},
                 {"exitCode", result.exitCode},
                 {"out", steady(result.out)},
                 {"err", steady(result.err)}}}};
    std::ranges::move(states, std::back_inserter(all));
    std::ranges::move(others, std::back_inserter(all));
    return all;
}

} // namespace chromalog::golden
