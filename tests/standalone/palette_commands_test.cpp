// Palettes without a window, as a person or a script converts them.
#include "support/run_program.h"
#include "support/temporary_folder.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

namespace chromalog {
namespace {

using testing::HasSubstr;
using testing::Not;
using Words = std::vector<std::string>;

class PaletteCommands : public testing::Test {
  protected:
    std::string path(const std::string& name) const { return folder / name; }
    std::string write(const std::string& name, const std::string& text) const {
        std::ofstream(path(name), std::ios::binary) << text;
        return path(name);
    }
    std::string contents(const std::string& name) const {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    static ProgramResult run(Words words) {
        words.insert(words.begin(), CHROMALOG_PROGRAM);
        return runProgram(words, {{"DISPLAY", ""}, {"QT_QPA_PLATFORM", "none"}});
    }

    test::TemporaryFolder folder;
    std::string gpl =
        write("a.gpl", "GIMP Palette\nName: Mine\n#\n255 0 0\tRed\n  0 0 255\tDeep \u00FCber blue\n");
    std::string hex = write("b.txt", "#00ff00 Green\n#fe0000 Nearly red\n");
};

TEST_F(PaletteCommands, ManyFilesBecomeOneOfAnotherKind) {
    const ProgramResult result = run({"convert", gpl, hex, path("all.ase")});
    EXPECT_EQ(result.err, "chromalog: " + path("all.ase") + ": the palette's name is lost\n");
    EXPECT_EQ(result.exitCode, 0);
    const ProgramResult list = run({"convert", "--list", path("all.ase")});
    EXPECT_EQ(list.out, "#ff0000  Red\n#0000ff  Deep \u00FCber blue\n#00ff00  Green\n#fe0000  Nearly red\n");
    EXPECT_EQ(list.err, "");
}

TEST_F(PaletteCommands, StandardStreamsAndTheKindByName) {
    const std::string command = std::string(CHROMALOG_PROGRAM) + " convert - - --to css < " + gpl;
    const ProgramResult result = runProgram({"sh", "-c", command});
    EXPECT_EQ(result.out, ":root {\n  --Red: #ff0000;\n  --Deep-\u00FCber-blue: #0000ff;\n}\n");
    EXPECT_EQ(result.err, "chromalog: standard output: 1 name changed; the palette's name is lost\n");
    EXPECT_EQ(result.exitCode, 0);
}

TEST_F(PaletteCommands, SortsAndLeavesOutNearDoubles) {
    EXPECT_EQ(run({"convert", "--list", "--sort", "name", gpl, hex}).out,
              "#0000ff  Deep \u00FCber blue\n#00ff00  Green\n#fe0000  Nearly red\n#ff0000  Red\n");
    EXPECT_EQ(run({"convert", "--list", "--sort", "hue", "--dedupe", "1", hex, gpl}).out,
              "#fe0000  Nearly red\n#00ff00  Green\n#0000ff  Deep \u00FCber blue\n");
    const std::string grey = write("grey.txt", "#808080 Grey\n");
    EXPECT_EQ(run({"convert", "--list", "--sort", "hue", hex, grey}).out,
              "#808080  Grey\n#fe0000  Nearly red\n#00ff00  Green\n");
}

TEST_F(PaletteCommands, JsonTellsWhatTheFileHolds) {
    const std::string tokens = write(
        "t.json",
        R"({"g": {"\"a\"": {"$value": {"colorSpace": "lab", "components": [50, 10, -20], "alpha": 0.5}}}})");
    EXPECT_EQ(run({"convert", "--json", tokens}).out, "[\n  {\"name\": \"\\\"a\\\"\", \"hex\": \"#7b7299\", "
                                                      "\"space\": \"lab\", \"components\": [50, 10, -20], "
                                                      "\"alpha\": 0.5, \"group\": \"g\"}\n]\n");
}

TEST_F(PaletteCommands, InkTakesTheProfileThatIsNamed) {
    // An exchange file of full cyan.
    using namespace std::string_literals;
    const std::string ase = write(
        "c.ase", "ASEF\0\1\0\0\0\0\0\1\0\1\0\0\0\x1A\0\1\0\0CMYK\x3F\x80\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\2"s);
    const ProgramResult result = run({"convert", ase, path("c.hex")});
    EXPECT_THAT(result.err, HasSubstr("1 color converted from CMYK to RGB by "));
    EXPECT_THAT(contents("c.hex"),
                testing::AnyOf("#00aeef\n", "#00ffff\n")); // with the installed profile, or without
    const ProgramResult bad = run({"convert", "--cmyk-profile", gpl, ase, path("d.hex")});
    EXPECT_EQ(bad.exitCode, 2);
    EXPECT_FALSE(std::filesystem::exists(path("d.hex")));
}

TEST_F(PaletteCommands, AMistakeIsOneLineAndWritesNothing) {
    const std::string kept = write("kept.gpl", "kept");
    const std::string broken = write("broken.soc", "<?xml version='1.0'?><a:color-table><");
    const std::string empty = write("empty.css", ""), headed = write("headed.gpl", "GIMP Palette\n");
    const std::string noise = write("noise", "\x13zq\n\x91\xF7--\n");
    write("long.gpl", "GIMP Palette\n");
    std::filesystem::resize_file(path("long.gpl"), std::uintmax_t{1} << 30);
    const std::pair<Words, std::string> cases[]{
        {{"convert"}, "FILE is required\n"},
        {{"convert", gpl}, "convert: name the palettes to read and the one to write, or --list\n"},
        {{"convert", path("none.gpl"), kept},
         "cannot read " + path("none.gpl") + ": No such file or directory\n"},
        {{"convert", gpl, broken, kept}, broken + ": the XML is broken in line 1\n"},
        {{"convert", path("long.gpl"), kept}, path("long.gpl") + ": too long for a palette\n"},
        {{"convert", "--from", "ase", gpl, kept}, gpl + ": this is no swatch exchange file\n"},
        {{"convert", "--from", "svg", gpl, kept}, "--from: svg is none of aco|"},
        {{"convert", "--to", "what", gpl, kept}, "--to: what is none of aco|"},
        {{"convert", gpl, path("x.y")}, path("x.y") + ": which kind of palette?"},
        {{"convert", gpl, "-"}, "--to must say what is written to standard output\n"},
        {{"convert", CHROMALOG_PROGRAM, kept}, std::string(CHROMALOG_PROGRAM) + ": "},
        {{"convert", gpl, path("no/folder.gpl")}, "cannot write "},
        {{"convert", "--sort", "size", gpl, kept}, "--sort: size "},
        {{"convert", "--dedupe", "-1", gpl, kept}, "--dedupe: -1 is no difference: a number from 0 on\n"},
        {{"convert", "--dedupe", "inf", gpl, kept}, "--dedupe: inf is no difference: a number from 0 on\n"},
        {{"convert", "--dedupe", "nan", gpl, kept}, "--dedupe: nan is no difference: a number from 0 on\n"},
        {{"convert", "--dedupe", "1e309", gpl, kept},
         "--dedupe: 1e309 is no difference: a number from 0 on\n"},
        {{"convert", "--dedupe", "few", gpl, kept}, "--dedupe: few is no difference: a number from 0 on\n"},
        {{"convert", empty, kept}, empty + ": it holds no colors\n"},
        {{"convert", empty, headed, kept}, "none of the 2 files holds a color\n"},
        {{"convert", headed, kept}, headed + ": it holds no colors\n"},
        {{"convert", "--from", "css", noise, kept}, noise + ": it holds no colors\n"},
        {{"convert", "--from", "paintnet", noise, kept}, noise + ": it holds no colors that can be read\n"},
        {{"nearest", "red", empty}, empty + ": it holds no colors\n"},
        {{"nearest", "bleu", gpl}, "not a colour: bleu\n"},
        {{"nearest", "#fff"}, "FILE is required\n"},
        {{"nearest", "#fff", gpl, "-n", "0"}, "-n: "},
    };
    for (const auto& [words, complaint] : cases) {
        const ProgramResult result = run(words);
        EXPECT_EQ(result.exitCode, 2) << complaint;
        EXPECT_THAT(result.err, testing::StartsWith("chromalog: " + complaint));
        EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
        EXPECT_EQ(result.out, "");
    }
    EXPECT_EQ(contents("kept.gpl"), "kept");
    EXPECT_EQ(
        runProgram({"sh", "-c", std::string(CHROMALOG_PROGRAM) + " convert --list " + gpl + " > /dev/full"})
            .exitCode,
        2);
}

TEST_F(PaletteCommands, AFileWithoutColoursBesideAnotherIsNoMistakeNorIsAListOfNone) {
    const std::string empty = write("empty.css", "");
    EXPECT_EQ(run({"convert", empty, hex, path("out.hex")}).exitCode, 0);
    EXPECT_EQ(contents("out.hex"), "#00ff00 Green\n#fe0000 Nearly red\n");
    EXPECT_THAT(run({"nearest", "red", empty, hex}).out, HasSubstr("Nearly red"));
    const ProgramResult json = run({"convert", "--json", empty});
    EXPECT_EQ(json.out, "[]\n");
    EXPECT_EQ(json.exitCode, 0);
    EXPECT_EQ(run({"convert", "--list", empty}).exitCode, 0);
    const std::string some = write("some.txt", "; paint.net Palette File\nFF102030\nGG\n");
    const ProgramResult part = run({"convert", "--list", "--from", "paintnet", some});
    EXPECT_EQ(part.err, "chromalog: " + some + ": 1 color could not be read\n");
    EXPECT_EQ(part.out, "#102030\n");
}

TEST_F(PaletteCommands, WhereNobodyReadsTheyEndQuietly) {
    int pipe[2];
    ASSERT_EQ(::pipe(pipe), 0);
    ::close(pipe[0]);
    const std::string program = "exec '" CHROMALOG_PROGRAM "' ", where = " >&" + std::to_string(pipe[1]);
    for (const std::string& words :
         {"convert --list " + gpl, "convert --json " + gpl, "convert --to css " + gpl + " -",
          "nearest red " + gpl, std::string("convert --help")}) {
        const ProgramResult result = runProgram({"sh", "-c", program + words + where});
        EXPECT_EQ(result.err, "") << words;
        EXPECT_EQ(result.exitCode, 128 + SIGPIPE) << words;
    }
    ::close(pipe[1]);
}

TEST_F(PaletteCommands, WhereAPipeIsNamedTheyTellOfTheDash) {
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    const ProgramResult result = run({"convert", "--list", path("pipe")});
    EXPECT_EQ(result.err, "chromalog: cannot read " + path("pipe") +
                              ": it is no regular file; - stands for standard input\n");
    EXPECT_EQ(result.exitCode, 2);
}

// Pairs of the published test data that lie inside sRGB.
TEST_F(PaletteCommands, NearestTellsPublishedDifferences) {
    const std::string tokens = write("t.json", R"({"$type": "color",
        "a": {"$value": {"colorSpace": "lab", "components": [73, 25, -18]}},
        "b": {"$value": {"colorSpace": "lab", "components": [50, 0, -2.5]}},
        "c": {"$value": {"colorSpace": "lab", "components": [61, -5, 29]}},
        "d": {"$value": {"colorSpace": "lab", "components": [56, -27, -3]}},
        "e": {"$value": {"colorSpace": "lab", "components": [58, 24, 15]}}})");
    const ProgramResult result = run({"nearest", "lab(50 2.5 0)", tokens, "-n", "9"});
    EXPECT_THAT(result.out,
                testing::MatchesRegex("  4\\.31  #......  b\n 19\\.45  #......  e\n 22\\.90  #......  c\n"
                                      " 27\\.15  #......  a\n 31\\.90  #......  d\n"));
    EXPECT_EQ(run({"nearest", "#fe0000", gpl, hex}).out, "  0.00  #fe0000  Nearly red\n");
}

TEST_F(PaletteCommands, LoadNoToolkit) {
    const ProgramResult result =
        runProgram({CHROMALOG_PROGRAM, "convert", gpl, path("a.css")}, {{"LD_DEBUG", "files"}});
    EXPECT_EQ(result.exitCode, 0);
#ifdef __GLIBC__
    EXPECT_THAT(result.err, HasSubstr("lcms"));
#endif
    EXPECT_THAT(result.err, Not(HasSubstr("Qt6")));
    EXPECT_THAT(result.err, Not(HasSubstr("Chromalog.so")));
}

TEST_F(PaletteCommands, ControlCharactersOfANameDoNotReachTheTerminal) {
    const std::string name = write("odd.gpl", "GIMP Palette\n1 2 3\tnext\u0085line \u00A9\n");
    EXPECT_EQ(run({"convert", "--list", name}).out, "#010203  next line \u00A9\n");
}

TEST_F(PaletteCommands, AReferenceToABookIsNearNothing) {
    const std::string references = write("book.aco", {"\0\1\0\2"
                                                      "\x0B\xB8 71-1D\0\0"
                                                      "\0\0\xFF\xFF\xFF\xFF\xFF\xFF\0\0",
                                                      24});
    EXPECT_EQ(run({"convert", "--list", references}).out, "-------\n#ffffff\n") << "it is read as one";
    const ProgramResult nearest = run({"nearest", "#000000", references, "-n", "2"});
    EXPECT_THAT(nearest.out, HasSubstr("#ffffff"));
    EXPECT_THAT(nearest.out, Not(HasSubstr("-------")));
}

} // namespace
} // namespace chromalog
