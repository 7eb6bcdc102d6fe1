// The shape of the source tree: who may include whom.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct SourceFile {
    std::string name; ///< from the root of the project
    std::vector<std::string> lines;
};

bool startsWith(const std::string& text, const std::string& prefix) {
    return text.rfind(prefix, 0) == 0;
}

std::vector<SourceFile> sources(const std::string& folder) {
    const fs::path root = CHROMALOG_SOURCE_DIR;
    std::vector<SourceFile> files;
    for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
        const auto extension = entry.path().extension();
        if (!entry.is_regular_file() || (extension != ".h" && extension != ".cpp" && extension != ".c"))
            continue;
        SourceFile file{fs::relative(entry.path(), root).string(), {}};
        std::ifstream in(entry.path());
        for (std::string line; std::getline(in, line);)
            file.lines.push_back(line);
        files.push_back(std::move(file));
    }
    return files;
}

/// What a file includes: quoted names as they stand, angled ones within their brackets.
std::vector<std::string> includes(const SourceFile& file) {
    static const std::regex pattern(R"(^\s*#\s*include\s*(?:"([^"]+)\"|(<[^>]+>)))");
    std::vector<std::string> found;
    std::smatch match;
    for (const std::string& line : file.lines)
        if (std::regex_search(line, match, pattern)) found.push_back(match[1].matched ? match[1] : match[2]);
    return found;
}

TEST(Structure, TheToolkitIsIncludedInOneRoomAlone) {
    std::vector<std::string> offenders;
    const std::regex toolkit("^<Q[A-Za-z0-9]|^<Qt|^<q[a-z]+\\.h");
    for (const char* folder : {"src", "tests", "fuzz"})
        for (const SourceFile& file : sources(folder)) {
            if (startsWith(file.name, "src/desktop/qt/") || startsWith(file.name, "tests/desktop_qt/") ||
                startsWith(file.name, "tests/e2e/"))
                continue;
            for (const std::string& name : includes(file))
                if (std::regex_search(name, toolkit)) offenders.push_back(file.name + " includes " + name);
        }
    EXPECT_THAT(offenders, testing::IsEmpty());
}

TEST(Structure, NoFilesIncludeEachOtherInACircle) {
    std::map<std::string, std::vector<std::string>> graph;
    for (const SourceFile& file : sources("src"))
        for (const std::string& name : includes(file))
            graph[file.name].push_back("src/" + name);
    std::set<std::string> done, path;
    std::vector<std::string> circles;
    const std::function<void(const std::string&)> visit = [&](const std::string& name) {
        if (done.contains(name)) return;
        if (!path.insert(name).second) {
            circles.push_back(name);
            return;
        }
        for (const std::string& next : graph[name])
            visit(next);
        path.erase(name);
        done.insert(name);
    };
    std::vector<std::string> names;
    for (const auto& [name, edges] : graph)
        names.push_back(name);
    for (const std::string& name : names)
        visit(name);
    EXPECT_THAT(circles, testing::IsEmpty());
}

TEST(Structure, OnlyTheEntryAndTheControllersReadTheProcessWidePointers) {
    const std::set<std::string> mayRead{"src/history/protocol_controler.cpp",
                                        "src/print/print_option_controller.cpp",
                                        "src/print/list_printing.cpp"};
    std::vector<std::string> offenders;
    for (const SourceFile& file : sources("src")) {
        if (startsWith(file.name, "src/host/") || mayRead.contains(file.name)) continue;
        for (const std::string& name : includes(file))
            if (name == "host/globals.h") offenders.push_back(file.name);
    }
    EXPECT_THAT(offenders, testing::IsEmpty());
}

TEST(Structure, RoomsBelowTheControllersDoNotKnowThem) {
    const std::set<std::string> controllers{"host/chromalog_controler.h", "history/protocol_controler.h",
                                            "print/print_option_controller.h"};
    std::vector<std::string> offenders;
    for (const char* room : {"src/colour", "src/views", "src/swatches", "src/prefs"})
        for (const SourceFile& file : sources(room))
            for (const std::string& name : includes(file))
                if (controllers.contains(name)) offenders.push_back(file.name + " includes " + name);
    EXPECT_THAT(offenders, testing::IsEmpty());
}

/// What recovers lists is told of the stored file, not of the plug-in's record.
bool isOfStoredFiles(const std::string& name) {
    return startsWith(name, "prefs/") && !startsWith(name, "prefs/preferences_file.");
}

TEST(Structure, TheHostKnowsThePlugInThroughTheInterfaceAlone) {
    std::vector<std::string> offenders;
    for (const SourceFile& file : sources("src/standalone"))
        for (const std::string& name : includes(file))
            if (name[0] != '<' && !startsWith(name, "host/abi/") && !startsWith(name, "standalone/") &&
                !isOfStoredFiles(name) &&
                name != "colour/colour_text.h") // how people write colours, no part of the plug-in
                offenders.push_back(file.name + " includes " + name);
    EXPECT_THAT(offenders, testing::IsEmpty());
}

TEST(Structure, StoredFilesKnowNothingOfTheRecord) {
    std::vector<std::string> offenders;
    for (const SourceFile& file : sources("src/prefs"))
        for (const std::string& name : includes(file))
            if (isOfStoredFiles(file.name.substr(4)) && name[0] != '<' && !isOfStoredFiles(name))
                offenders.push_back(file.name + " includes " + name);
    EXPECT_THAT(offenders, testing::IsEmpty());
}

// Not every C++ library reads doubles with <charconv>, and the C library follows the process's locale.
TEST(Structure, NumbersWithAPointAreReadAndWrittenInOneFile) {
    std::vector<std::string> offenders;
    const std::regex calls("\\b(chars_format|to_chars|strto[dfl]|strtold|sto[dfl]|stold|atof)\\b");
    for (const SourceFile& file : sources("src")) {
        if (file.name == "src/colour/number_text.cpp") continue;
        for (const std::string& line : file.lines)
            if (std::regex_search(line, calls)) offenders.push_back(file.name + ": " + line);
        const auto named = includes(file);
        const bool charconv = std::count(named.begin(), named.end(), "<charconv>") > 0;
        if (charconv && file.name != "src/colour/colour_text.cpp") // whole numbers alone
            offenders.push_back(file.name + " includes <charconv>");
    }
    EXPECT_THAT(offenders, testing::IsEmpty());
}

TEST(Structure, NoFileIsLongerThanOneCanHoldInMind) {
    std::vector<std::string> offenders;
    for (const char* folder : {"src", "tests", "bench", "fuzz"})
        for (const SourceFile& file : sources(folder))
            if (file.lines.size() > 400)
                offenders.push_back(file.name + ": " + std::to_string(file.lines.size()));
    EXPECT_THAT(offenders, testing::IsEmpty());
}

} // namespace
