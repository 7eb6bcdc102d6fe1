// What the scripts of the stored states play: every command, and every operation of the interface files.
#include "drive/script.h"
#include "golden_states/script_file.h"
#include "golden_states/store.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>

namespace chromalog::golden {
namespace {

namespace fs = std::filesystem;

std::string readFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// Every command of every script that the program can read.
drive::Script commands() {
    drive::Script all;
    for (const auto& entry : fs::recursive_directory_iterator(GOLDEN_SCRIPTS))
        if (entry.is_regular_file())
            for (const Step& step : stepsOf(readFile(entry.path()))) {
                const auto read = drive::readScript(step.text);
                if (const auto* script = std::get_if<drive::Script>(&read))
                    all.insert(all.end(), script->begin(), script->end());
            }
    return all;
}

/// The operations of the interface files, each with the controls and menu items that send it.
std::map<std::string, std::set<std::string>> operations() {
    static const std::regex pattern(
        R"re(<(?:widget|action) [^>]*name="(\w+)"|name="action" stdset="0">\s*<string>([\w:]+)<)re");
    std::map<std::string, std::set<std::string>> found;
    for (const auto& entry : fs::directory_iterator(GOLDEN_FORMS)) {
        const std::string form = readFile(entry.path());
        std::string sender;
        for (std::sregex_iterator each(form.begin(), form.end(), pattern), end; each != end; ++each)
            if ((*each)[1].matched)
                sender = (*each)[1];
            else
                found[(*each)[2]].insert(sender);
    }
    return found;
}

TEST(GoldenScripts, ScriptsComeToTheirEndBarringThoseThatFailOnPurpose) {
    // The second saves into a folder that is not there, which is told at its end.
    const std::set<std::string> failing{"anywhere/errors", "anywhere/list_saving", "tests"};
    for (const auto& [name, record] : Store(GOLDEN_STATES).readAll())
        for (const Part& part : record) {
            if (part.kind != Part::Kind::run || failing.contains(name)) continue;
            EXPECT_EQ(part.value["err"], "") << name << ", " << part.title();
        }
}

TEST(GoldenScripts, EveryCommandIsPlayed) {
    std::set<drive::Verb> played;
    for (const drive::Command& command : commands())
        played.insert(command.verb);
    EXPECT_EQ(played.size(), static_cast<std::size_t>(drive::Verb::cancel) + 1);
}

TEST(GoldenScripts, EveryOperationIsPlayed) {
    std::set<std::string> words{"okButton", "cancelButton", "okPrint"}; // ok and cancel press them
    for (const drive::Command& command : commands())
        words.insert(command.words.begin(), command.words.end());
    const auto all = operations();
    EXPECT_GE(all.size(), 40u);
    for (const auto& [operation, senders] : all) {
        if (operation == "setupPrintPage:" || operation == "setupPrintPage")
            continue; // the toolkit's own panel
        bool isPlayed = words.contains(operation);
        for (const std::string& sender : senders)
            isPlayed = isPlayed || words.contains(sender);
        EXPECT_TRUE(isPlayed) << operation;
    }
}

} // namespace
} // namespace chromalog::golden
