// The dialog on a real X server, under a real pointer and keyboard, beside another program and assistive
// technology.
#include "e2e/driven_pick.h"
#include "e2e/x_server.h"

#include <sstream>

namespace chromalog::test {
namespace {

using testing::Contains;
using testing::StartsWith;

bool installed(const std::string& check) {
    return runProgram({"sh", "-c", check + " >/dev/null 2>&1"}).exitCode == 0;
}

class OnXServer : public DrivenPick {
  protected:
    void SetUp() override {
        if (!server_.runs() || !installed("command -v xdotool")) GTEST_SKIP() << "needs Xvfb and xdotool";
        writeThree();
        onScreen();
    }

    void onScreen() {
        environment_["QT_QPA_PLATFORM"] = "xcb";
        environment_["DISPLAY"] = server_.display();
    }

    /// Where the controls stand, for scripts that move the pointer.
    void writeFrames() const {
        playWell("state $/frames.json\n");
        const json now = state("frames.json");
        std::ostringstream frames;
        for (const auto& [name, outlet] : now["outlets"].items()) {
            if (!outlet["visible"]) continue;
            frames << name;
            for (const int length : outlet["frame"])
                frames << ' ' << length;
            frames << '\n';
        }
        write("frames", frames.str());
    }

    /// Runs the shell script of that name against a dialog with these options.
    ProgramResult act(const std::string& script, std::vector<std::string> options,
                      std::vector<std::string> before = {}) {
        std::vector<std::string> words = {"timeout", "-k", "10", "150"};
        words.insert(words.end(), before.begin(), before.end());
        words.insert(words.end(), {"bash", std::string(CHROMALOG_X11_SCRIPTS) + "/" + script,
                                   CHROMALOG_PROGRAM, folder_.path(), "--data-dir", file("data")});
        words.insert(words.end(), options.begin(), options.end());
        const auto result = runProgram(words, environment_);
        EXPECT_EQ(result.exitCode, 0) << result.err;
        return result;
    }

    /// The swatches that a pick leaves in a list, each as "NAME red green blue".
    std::vector<std::string> swatches(int list) const {
        playWell("state $/after.json\n");
        const json now = state("after.json");
        std::vector<std::string> all;
        for (const json& record : now["lists"][list - 1]["records"]) {
            std::ostringstream line;
            const std::string hex = record["name"];
            for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
                line << static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
            line << ' ' << record["SRed"] << ' ' << record["SGreen"] << ' ' << record["SBlue"];
            all.push_back(line.str());
        }
        return all;
    }

    XServer server_;
};

TEST_F(OnXServer, ScriptsPlayAsTheyDoOffscreen) {
    const std::string script = "type firstR 255\nclick chromaView 100.25 90.5\npress triComplementOn:\n"
                               "choose $/three.aco\npress loadSwatch1:\ndrag swatch1 50 30 swatch2 50 30\n"
                               "answer\ndrop swatch1 10 10 red\nstate $/state.json\n";
    playWell(script);
    const auto onServer = state();
    environment_["QT_QPA_PLATFORM"] = "offscreen";
    playWell(script, {"--option"});
    for (const char* key :
         {"firstColor", "secondColor", "wheel", "lists", "alerts", "undoNames", "pasteboard"})
        EXPECT_EQ(onServer[key], state()[key]) << key;
}

TEST_F(OnXServer, PicksInARowStandOnAServerThatStartsAnewWithoutClients) {
    const XServer server(XServer::WhenAlone::startsAnew);
    ASSERT_TRUE(server.runs());
    environment_["DISPLAY"] = server.display();
    for (int run = 0; run < 4; ++run) {
        const auto result = pick({"--accept", "--picks", "4"});
        EXPECT_EQ(result.out, "#e54c19\n#e54c19\n#e54c19\n#e54c19\n");
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.exitCode, 0);
    }
}

TEST_F(OnXServer, ColoursCrossProgramsExactToTheWord) {
    if (!installed("/usr/bin/python3 -c 'import gi; gi.require_version(\"Gtk\", \"3.0\")'"))
        GTEST_SKIP() << "needs GTK 3";
    playWell("choose $/three.aco\npress loadSwatch2:\n");
    writeFrames();
    act("exchange_colours.sh", {"--color", "#336699"});
    EXPECT_EQ(read("received"), "1234 abcd fffe ffff format 16\n" // the first well: what it was given
                                "ffff 0000 0000 ffff format 16 text Red\n"); // a swatch brings its name
    EXPECT_THAT(swatches(2), Contains("From outside 4660 43981 65534"));
}

TEST_F(OnXServer, AssistiveTechnologyReadsAndWorksTheDialog) {
    if (!installed("command -v dbus-run-session") ||
        !installed("/usr/bin/python3 -c 'import gi; gi.require_version(\"Atspi\", \"2.0\")'"))
        GTEST_SKIP() << "needs AT-SPI";
    playWell("choose $/three.aco\npress loadSwatch1:\n");
    writeFrames();
    act("walk_accessible.sh", {"--color", "#336699"}, {"dbus-run-session", "--"});
    const json told = json::parse(read("accessible.json"));
    std::vector<std::pair<std::string, std::string>> tree;
    for (const json& node : told["tree"])
        tree.emplace_back(node["role"], node["name"]);
    for (const auto& expected :
         std::vector<std::pair<std::string, std::string>>{{"dialog", "Chromalog"},
                                                          {"slider", "Luminosity"},
                                                          {"color chooser", "Color wheel"},
                                                          {"check box", "Complement"},
                                                          {"push button", "Cancel"},
                                                          {"text", "First color, red, 0 to 255"},
                                                          {"list item", "Red"},
                                                          {"list item", "Green"},
                                                          {"list item", "Blue"}})
        EXPECT_THAT(tree, Contains(expected));
    // A caption may bear the same name; it describes nothing.
    const auto description = [&](const std::string& name) {
        for (const json& node : told["tree"])
            if (node["name"] == name && node["description"] != "")
                return node["description"].get<std::string>();
        return std::string("no " + name);
    };
    EXPECT_THAT(description("Color wheel"), StartsWith("RGB 51 102 153, #336699. "));
    EXPECT_THAT(description("Gradient"), StartsWith("no color picked. "));
    EXPECT_EQ(description("Second color"), "RGB 51 102 153, #336699");
    EXPECT_EQ(told["strip"]["value"], 25.0);
    EXPECT_EQ(told["strip"]["range"], (json{0.0, 100.0}));
}

TEST_F(OnXServer, AssistiveTechnologyHearsTheStatusLine) {
    if (!installed("command -v dbus-run-session") ||
        !installed("/usr/bin/python3 -c 'import gi; gi.require_version(\"Atspi\", \"2.0\")'"))
        GTEST_SKIP() << "needs AT-SPI";
    writeFrames();
    std::filesystem::remove_all(file("data"));
    act("hear_status.sh", {}, {"dbus-run-session", "--"});
    const std::string said = "The lists were not stored: Is a directory";
    EXPECT_THAT(json::parse(read("heard.json")),
                Contains(json{{"event", "object:state-changed:showing"}, {"name", said}}));
}

TEST_F(OnXServer, AssistiveTechnologySelectsRowsAndHearsTheirChanges) {
    if (!installed("command -v dbus-run-session") ||
        !installed("/usr/bin/python3 -c 'import gi; gi.require_version(\"Atspi\", \"2.0\")'"))
        GTEST_SKIP() << "needs AT-SPI";
    playWell("choose $/three.aco\npress loadSwatch1:\n");
    writeFrames();
    act("hear_lists.sh", {}, {"dbus-run-session", "--"});
    const json told = json::parse(read("heard.json"));
    EXPECT_THAT(told["interfaces"], Contains("Table"));
    EXPECT_EQ(told["rows"], 3);
    EXPECT_EQ(told["selected"], json{2});
    const auto line = [](const char* event, const char* role, const char* name) {
        return json{{"event", event}, {"role", role}, {"name", name}};
    };
    EXPECT_THAT(told["heard"], Contains(line("object:state-changed:selected", "list item", "Blue")));
    EXPECT_THAT(told["heard"], Contains(line("object:state-changed:selected", "list item", "Green")))
        << "by a key";
    EXPECT_THAT(told["heard"], Contains(line("object:state-changed:showing", "notification",
                                             "Undone. List 1: 3. List 2: 0")));
}

} // namespace
} // namespace chromalog::test
