#include "golden_states/replay.h"

#include "golden_states/capture.h"
#include "golden_states/samples.h"
#include "golden_states/script_file.h"
#include "golden_states/store.h"
#include "support/temporary_folder.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>

namespace chromalog::golden {
namespace {

namespace fs = std::filesystem;
using test::TemporaryFolder;

std::string readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::map<std::string, std::string> surroundings(const TemporaryFolder& folder, Forms forms) {
    return {{"QT_QPA_PLATFORM", "offscreen"},
            {"QT_SCALE_FACTOR", ""},
            {"QT_LOGGING_RULES", ""},
            {"QT_STYLE_OVERRIDE", ""},
            {"QT_QPA_PLATFORMTHEME", ""},
            {"CHROMALOG_BOOKS", ""},
            {"CHROMALOG_LOG", ""},
            {"CHROMALOG_STRICT", "1"},
            {"CHROMALOG_FORMS", forms == Forms::frozen ? GOLDEN_FORMS : ""},
            {"XDG_RUNTIME_DIR", folder / "run"},
            {"XDG_CONFIG_HOME", folder / "config"},
            {"HOME", folder / "home"},
            {"LC_ALL", "C.UTF-8"}};
}

void prepare(const TemporaryFolder& folder) {
    for (const char* name : {"run", "config", "home", "books"})
        fs::create_directory(folder / name);
    fs::permissions(folder / "run", fs::perms::owner_all);
    fs::copy(GOLDEN_DOCS, folder / "docs");
    writeSamples(folder.path());
}

/// Names in scripts and options are the folder's own: it is the program's working folder.
std::vector<std::string> commandOf(const Step& step, const TemporaryFolder& folder) {
    std::vector<std::string> words = {"env", "-C", folder.path()};
    if (step.kind == Step::Kind::shell) {
        words.insert(words.end(), {"sh", "-c", step.text});
        return words;
    }
    // A run that hangs is ended and told by its exit code.
    words.insert(words.end(), {"timeout", "-k", "10", "300", CHROMALOG_PROGRAM, "--data-dir", "data"});
    words.insert(words.end(), step.options.begin(), step.options.end());
    if (!step.text.empty()) {
        std::ofstream(folder / "script", std::ios::binary) << step.text;
        words.insert(words.end(), {"--drive", "script"});
    }
    return words;
}

std::set<std::string> namesInFrozenForms() {
    static const std::regex name("name=\"(\\w+)\"");
    std::set<std::string> names;
    for (const auto& form : fs::directory_iterator(GOLDEN_FORMS)) {
        const std::string text = readFile(form.path());
        for (std::sregex_iterator found(text.begin(), text.end(), name), end; found != end; ++found)
            names.insert((*found)[1]);
    }
    return names;
}

/// Fonts decide on places in panels that have no frozen form.
void forgetPlacesElsewhere(Part& part) {
    static const std::set<std::string> placed = namesInFrozenForms();
    if (part.kind != Part::Kind::state) return;
    for (auto& [name, outlet] : part.value["outlets"].items())
        if (!placed.contains(name)) outlet.erase("frame");
}

} // namespace

std::vector<std::string> scriptNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(GOLDEN_SCRIPTS))
        if (entry.path().extension() == ".drive")
            names.push_back(fs::relative(entry.path(), GOLDEN_SCRIPTS).replace_extension());
    std::ranges::sort(names);
    return names;
}

Record replay(const std::string& name, Forms forms, const std::string& language) {
    const TemporaryFolder folder;
    prepare(folder);
    Record record;
    int runs = 0;
    for (const Step& step : stepsOf(readFile(std::string(GOLDEN_SCRIPTS) + "/" + name + ".drive"))) {
        auto command = commandOf(step, folder);
        if (step.kind == Step::Kind::run && language != "en")
            command.insert(command.end(), {"--language", language});
        const Capture capture(folder.path());
        const auto result = runProgram(command, surroundings(folder, forms));
        if (step.kind == Step::Kind::shell && result.exitCode != 0)
            throw std::runtime_error(name + ":" + step.text + ": " + result.err);
        if (step.kind == Step::Kind::run)
            std::ranges::move(capture.after("run " + std::to_string(++runs), step.options, step.text, result),
                              std::back_inserter(record));
    }
    return record;
}

Record replayTests() {
    const TemporaryFolder folder;
    const auto result = runProgram({"timeout", "-k", "10", "1400", CHROMALOG_PICK_TESTS},
                                   {{"CHROMALOG_RECORD", folder.path()}, {"CHROMALOG_FORMS", GOLDEN_FORMS}});
    if (result.exitCode > 1) throw std::runtime_error("the tests of whole picks did not end: " + result.err);
    std::set<std::string> files;
    for (const auto& entry : fs::directory_iterator(folder.path()))
        files.insert(entry.path());
    Record record;
    for (const std::string& file : files)
        std::ranges::move(readRecord(file), std::back_inserter(record));
    std::ranges::for_each(record, forgetPlacesElsewhere);
    return record;
}

} // namespace chromalog::golden
