#include "drive/paper.h"
#include "drive/script.h"
#include "drive/script_words.h"

#include <gmock/gmock.h>

namespace chromalog::drive {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

Words split(std::string_view line) {
    return splitWords(line,
                      [](std::string_view verb) { return verb == "drop" ? std::size_t{2} : kNoColour; });
}

TEST(ScriptWords, AreSplitAsAShellDoes) {
    struct Case {
        const char* line;
        std::vector<std::string> words;
    };
    const Case cases[] = {
        {"", {}},
        {"  \t\r", {}},
        {"a  b\tc\r", {"a", "b", "c"}},
        {"'a b' \"c d\"", {"a b", "c d"}},
        {"type firstR ''", {"type", "firstR", ""}},
        {"a'b c'd\"e f\"g", {"ab cde fg"}},
        {R"('a\b')", {R"(a\b)"}},
        {R"("a\"b\\c\d")", {R"(a"b\c\d)"}},
        {R"(a\ b \#c \'d)", {"a b", "#c", "'d"}},
        {"a # b 'c", {"a"}},
        {"a#b", {"a#b"}},
        {"#a", {}},
        {"'#a' \"#b\"", {"#a", "#b"}},
        {"drop v #f80 name", {"drop", "v", "#f80", "name"}},
        {"drop v # f80", {"drop", "v"}},
        {"drop v #falls into the view", {"drop", "v"}},
        {"drop #f80 v", {"drop"}},
        {"drop v '#f80' #abc", {"drop", "v", "#f80"}},
        {"\xc3\xa9t\xc3\xa9", {"\xc3\xa9t\xc3\xa9"}},
    };
    for (const auto& [line, words] : cases) {
        EXPECT_THAT(split(line).words, testing::ElementsAreArray(words)) << line;
        EXPECT_EQ(split(line).error, "") << line;
    }
}

TEST(ScriptWords, OpenQuotesAndALastBackslashAreErrors) {
    for (const char* line : {"a 'b", "a \"b", "a \"b\\\"", "a \\"})
        EXPECT_NE(split(line).error, "") << line;
}

Script scriptOf(std::string_view text) {
    auto read = readScript(text);
    if (auto* error = std::get_if<ScriptError>(&read)) {
        ADD_FAILURE() << error->line << ": " << error->message;
        return {};
    }
    return std::get<Script>(read);
}

ScriptError errorOf(std::string_view text) {
    auto read = readScript(text);
    if (auto* error = std::get_if<ScriptError>(&read)) return *error;
    ADD_FAILURE() << "no error in: " << text;
    return {};
}

TEST(Script, EveryCommandReads) {
    const auto script = scriptOf("click chromaView 10.5 20\n"
                                 "click okButton 1 2 alt\n"
                                 "rclick swatch1 3 4\n"
                                 "press loadSwatch1:\n"
                                 "press okButton alt\n"
                                 "drag swatch1 1 2 swatch2 3 4\n"
                                 "sweep lumiView 1 2 -3 1e2 5\n"
                                 "drop swatch1 1 2 #11223344 'New one'\n"
                                 "drop swatch1 1 2 red\n"
                                 "type firstR 255\n"
                                 "append firstR ''\n"
                                 "key Shift+Right\n"
                                 "key Up swatch1\n"
                                 "set toneSlider 12.5\n"
                                 "menu swatch1 deleteSwatch1:\n"
                                 "choose cancel\n"
                                 "answer\n"
                                 "print out.pdf\n"
                                 "paper A4 landscape\n"
                                 "wait 10\n"
                                 "shot a.png\n"
                                 "picture chromaView a.png\n"
                                 "state a.json\n"
                                 "ok\n"
                                 "cancel");
    EXPECT_EQ(script.size(), 25u);
    for (std::size_t i = 0; i < script.size(); ++i)
        EXPECT_EQ(script[i].line, static_cast<int>(i) + 1);
    EXPECT_EQ(script[0].verb, Verb::click);
    EXPECT_EQ(script[0].text(0), "chromaView");
    EXPECT_EQ(script[0].point(1), (Point{10.5, 20}));
    EXPECT_FALSE(script[0].has(3));
    EXPECT_TRUE(script[1].has(3));
    EXPECT_EQ(script[6].point(3), (Point{-3, 100}));
    EXPECT_EQ(script[7].colour(3).alpha, 0x4444);
    EXPECT_EQ(script[7].text(4), "New one");
    EXPECT_EQ(script[10].text(1), "");
}

TEST(Script, BlankLinesAndCommentsCountAsLines) {
    const auto script = scriptOf("# nothing\n\n  ok # press it\r\n");
    ASSERT_EQ(script.size(), 1u);
    EXPECT_EQ(script[0].line, 3);
    EXPECT_THAT(script[0].words, IsEmpty());
    EXPECT_THAT(scriptOf(""), IsEmpty());
}

TEST(Script, ErrorsNameTheLineAndWhatIsWrong) {
    struct Case {
        const char* text;
        int line;
        const char* message;
    };
    const Case cases[] = {
        {"ok\nfrobnicate", 2, "unknown command 'frobnicate'"},
        {"OK", 1, "unknown command 'OK'"},
        {"click chromaView 1", 1, "click takes the words OUTLET X Y [alt]"},
        {"click chromaView 1 2 alt 3", 1, "click takes"},
        {"click chromaView 1 2 shift", 1, "'shift'"},
        {"click chromaView 1 2x", 1, "'2x' is not a number"},
        {"click chromaView 1 nan", 1, "'nan' is not a number"},
        {"click chromaView 1 ''", 1, "'' is not a number"},
        {"ok now", 1, "ok takes no words"},
        {"sweep lumiView 1 2 3 4 0", 1, "steps"},
        {"sweep lumiView 1 2 3 4 1.5", 1, "steps"},
        {"wait -1", 1, "whole"},
        {"wait", 1, "wait takes"},
        {"drop swatch1 1 2 #12", 1, "'#12' is not a colour"},
        {"drop swatch1 1 2 # red", 1, "drop takes"},
        {"set toneSlider full", 1, "'full' is not a number"},
        {"type firstR", 1, "type takes"},
        {"paper", 1, "paper takes"},
        {"paper A9", 1, "paper"},
        {"\n\ntype firstR '", 3, "quote"},
    };
    for (const auto& [text, line, message] : cases) {
        const auto error = errorOf(text);
        EXPECT_EQ(error.line, line) << text;
        EXPECT_THAT(error.message, HasSubstr(message)) << text;
    }
}

TEST(Script, OnlySomeCommandsRunWhileAPanelIsOpen) {
    for (const Verb verb : {Verb::answer, Verb::choose, Verb::state, Verb::shot, Verb::wait})
        EXPECT_TRUE(allowedInPanels(verb)) << nameOf(verb);
    for (const Verb verb : {Verb::click, Verb::press, Verb::type, Verb::ok, Verb::cancel, Verb::print,
                            Verb::paper, Verb::picture, Verb::key, Verb::menu, Verb::drag, Verb::set})
        EXPECT_FALSE(allowedInPanels(verb)) << nameOf(verb);
}

PrintInfo paper(std::vector<std::string> words) {
    const auto info = readPaper(words);
    EXPECT_TRUE(info) << testing::PrintToString(words);
    return info.value_or(PrintInfo{});
}

TEST(Paper, NamesSizesAndOptionsInAnyOrder) {
    EXPECT_EQ(paper({"A4"}).paper, (Size{595, 842}));
    EXPECT_EQ(paper({"Letter"}).paper, (Size{612, 792}));
    EXPECT_EQ(paper({"Letter", "landscape"}).paper, (Size{792, 612}));
    EXPECT_EQ(paper({"300.5x200"}).paper, (Size{300.5, 200}));
    EXPECT_EQ(paper({"A4"}).left, 36);
    EXPECT_EQ(paper({"A4"}).scale, 1);
    const auto all = paper({"A4", "scale", "0.5", "margins", "1", "2", "3", "4", "landscape"});
    EXPECT_EQ(all.paper, (Size{842, 595}));
    EXPECT_THAT((std::vector{all.left, all.right, all.top, all.bottom, all.scale}),
                ElementsAre(1, 2, 3, 4, 0.5));
}

TEST(Paper, NonsenseIsRefused) {
    const std::vector<std::string> nonsense[] = {
        {},
        {"a4"},
        {"x"},
        {"10x"},
        {"-1x20"},
        {"A4", "upright"},
        {"A4", "margins", "1", "2", "3"},
        {"A4", "scale"},
        {"A4", "scale", "0"},
        {"A4", "scale", "big"},
        {"A4", "margins", "-1", "2", "3", "4"},
        {"A4", "margins", "300", "300", "0", "0"},
    };
    for (const auto& words : nonsense)
        EXPECT_FALSE(readPaper(words)) << testing::PrintToString(words);
}

} // namespace
} // namespace chromalog::drive
