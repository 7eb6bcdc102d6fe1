// The shape of the source tree, beside its map.
#include "structure/source_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <regex>
#include <set>

namespace chromalog::test {
namespace {

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

TEST(Structure, TheDialogAloneReadsTheProcessWidePointers) {
    std::vector<std::string> offenders;
    for (const SourceFile& file : sources("src")) {
        if (file.name.starts_with("src/dialog/")) continue;
        for (const std::string& name : includes(file))
            if (name == "dialog/globals.h") offenders.push_back(file.name);
    }
    EXPECT_THAT(offenders, testing::IsEmpty());
}

/// A module of its own: what it includes it compiles again, so it takes of the plug-in's rooms an interface.
TEST(Structure, ThePlayerKnowsTheDialogByItsInterfacesAlone) {
    std::set<std::string> named;
    for (const SourceFile& file : sources("src/drive"))
        for (const std::string& name : includes(file))
            if (name.starts_with("qt/")) named.insert(name);
    EXPECT_THAT(named, testing::ElementsAre("qt/driven_dialog.h", "qt/form_reading.h"));
}

/// What recovers lists is told of the stored file, not of the plug-in's record.
bool knowsTheRecord(const std::string& name) {
    return name.find("/preferences_file.") != name.npos;
}

TEST(Structure, StoredFilesKnowNothingOfTheRecord) {
    std::vector<std::string> offenders;
    for (const char* room : {"src/prefs", "src/standalone"})
        for (const SourceFile& file : sources(room))
            for (const std::string& name : includes(file))
                if (!knowsTheRecord(file.name) && (name.starts_with("record/") || knowsTheRecord(name)))
                    offenders.push_back(file.name + " includes " + name);
    EXPECT_THAT(offenders, testing::IsEmpty());
}

// Not every C++ library reads doubles with <charconv>, and the C library follows the process's locale.
TEST(Structure, NumbersWithAPointAreReadAndWrittenInOneFile) {
    std::vector<std::string> offenders;
    const std::regex calls("\\b(chars_format|to_chars|strto[dfl]|strtold|sto[dfl]|stold|atof)\\b");
    for (const SourceFile& file : sources("src")) {
        if (file.name == "src/base/number_text.cpp") continue;
        for (const std::string& line : file.lines)
            if (std::regex_search(line, calls)) offenders.push_back(file.name + ": " + line);
        const auto named = includes(file);
        const bool charconv = std::count(named.begin(), named.end(), "<charconv>") > 0;
        if (charconv && file.name != "src/base/colour_text.cpp") // whole numbers alone
            offenders.push_back(file.name + " includes <charconv>");
    }
    EXPECT_THAT(offenders, testing::IsEmpty());
}

std::string textOf(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// What a form says beside the toolkit's own properties is told in one place.
TEST(Structure, EveryPropertyOfTheFormsIsDescribed) {
    const std::filesystem::path root = CHROMALOG_SOURCE_DIR;
    const std::string page = textOf(root / "docs/architecture.md");
    const std::regex ours("<property name=\"(\\w+)\" stdset=\"0\">");
    std::set<std::string> missing, found;
    for (const auto& entry : std::filesystem::directory_iterator(root / "resources")) {
        if (entry.path().extension() != ".ui") continue;
        const std::string form = textOf(entry.path());
        for (std::sregex_iterator at(form.begin(), form.end(), ours), end; at != end; ++at) {
            const std::string name = (*at)[1];
            found.insert(name);
            if (name != "sizeHint" && page.find('`' + name + '`') == std::string::npos) missing.insert(name);
        }
    }
    EXPECT_GT(found.size(), 10u);
    EXPECT_THAT(missing, testing::IsEmpty());
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
} // namespace chromalog::test
