#include "standalone/palettes/palette_commands.h"

#include "files/size_limit_signal.h"
#include "palettes/palette_format.h"
#include "standalone/palettes/convert.h"
#include "standalone/standard_streams.h"

#include <CLI/CLI.hpp>
#include <cmath>
#include <csignal>
#include <iostream>

namespace chromalog::standalone {

namespace {

const std::map<std::string, PaletteOrder> kOrders{
    {"name", PaletteOrder::name}, {"hue", PaletteOrder::hue}, {"lightness", PaletteOrder::lightness}};

/// The words of all formats that can be read, or written, for the help and for the check.
std::string wordsOf(bool read) {
    std::string words;
    for (const PaletteFormatRules& rules : paletteFormats())
        if (rules.read || !read) words.append(words.empty() ? "" : "|").append(rules.word);
    return words;
}

CLI::Validator formatWord(bool read) {
    return {[read](std::string& word) {
                const auto format = formatOfWord(word);
                const bool good = format && (rulesOf(*format).read || !read);
                return good ? std::string() : word + " is none of " + wordsOf(read);
            },
            ""};
}

/// Without the words that the parser would add to a value's kind in the help.
CLI::Validator quiet(CLI::Validator check) {
    return check.description("");
}

/// A finite one; the parser's own check would tell of the largest number there is, in 309 digits.
const CLI::Validator kDifference(
    [](std::string& text) {
        double value = 0;
        const bool good = CLI::detail::lexical_cast(text, value) && std::isfinite(value) && value >= 0;
        return good ? std::string() : text + " is no difference: a number from 0 on";
    },
    "");

void addCommon(CLI::App& app, std::string& from, std::string& profile) {
    app.set_help_flag("--help", "Print this text");
    app.add_option("--from", from, "Read every file as this kind, whatever it holds")
        ->check(formatWord(true))
        ->type_name(wordsOf(true));
    app.add_option("--cmyk-profile", profile, "Convert CMYK by this profile")
        ->check(quiet(CLI::ExistingFile))
        ->type_name("FILE");
}

void addConvert(CLI::App& app, ConvertRequest& request) {
    addCommon(app, request.from, request.cmykProfile);
    app.add_option("FILE", request.files, "Palettes to read, then the one to write; - is a standard stream")
        ->required()
        ->type_name("");
    app.add_option("--to", request.to, "Write this kind, whatever the name ends with")
        ->check(formatWord(false))
        ->type_name(wordsOf(false));
    app.add_option_function<std::string>(
           "--sort", [&request](const std::string& word) { request.order = kOrders.at(word); },
           "Order the colours")
        ->check(quiet(CLI::IsMember(kOrders)))
        ->type_name("name|hue|lightness");
    app.add_option("--dedupe", request.dedupe,
                   "Leave out what differs from an earlier colour by at most N (CIEDE2000)")
        ->check(kDifference)
        ->type_name("N");
    app.add_flag("--list", request.list, "Write no file: print hexes and names");
    app.add_flag("--json", request.json, "Write no file: print the colours as JSON");
}

void addNearest(CLI::App& app, NearestRequest& request) {
    addCommon(app, request.from, request.cmykProfile);
    app.add_option("COLOUR", request.colour, "Any notation of CSS: '#3366cc'")->required()->type_name("");
    app.add_option("FILE", request.files, "Palettes to look in")->required()->type_name("");
    app.add_option("-n", request.count, "Print the N nearest, with their differences (CIEDE2000)")
        ->check(quiet(CLI::Range(1, 65535)))
        ->type_name("N");
}

int complain(const std::string& text) {
    say(text.substr(0, text.find('\n')));
    return 2;
}

/// Prints the help.
int show(const CLI::App& app, const CLI::Success& wanted) {
    const SizeLimitSignalBlock onlyFails;
    const int exitCode = app.exit(wanted);
    finishStandardOutput();
    return exitCode;
}

constexpr int kNobodyReads = 128 + SIGPIPE; // what a shell tells of a program that the signal ends

/// Parses, then runs.
template <typename Run> int run(CLI::App& app, int argc, const char* const* argv, const Run& command) {
    try {
        try {
            app.parse(argc, argv);
        } catch (const CLI::Success& wanted) {
            return show(app, wanted);
        }
        command();
        return 0;
    } catch (const NobodyReads&) {
        return kNobodyReads;
    } catch (const CLI::ParseError& error) {
        return complain(error.what());
    } catch (const std::runtime_error& error) {
        return complain(error.what());
    } catch (const std::bad_alloc&) {
        return complain("there is not enough memory");
    }
}

} // namespace

std::optional<int> runPaletteCommand(int argc, const char* const* argv) {
    const std::string_view word = argc > 1 ? argv[1] : "";
    if (word == "convert") {
        ConvertRequest request;
        CLI::App app("Converts palettes of any kind into one, or lists their colours.", "chromalog convert");
        addConvert(app, request);
        return run(app, argc - 1, argv + 1, [&request] {
            if (!request.list && !request.json && request.files.size() < 2)
                throw std::runtime_error(
                    "convert: name the palettes to read and the one to write, or --list");
            runConvert(request);
        });
    }
    if (word == "nearest") {
        NearestRequest request;
        CLI::App app("Finds the colours of palettes that are nearest to a colour.", "chromalog nearest");
        addNearest(app, request);
        return run(app, argc - 1, argv + 1, [&request] { runNearest(request); });
    }
    return std::nullopt;
}

} // namespace chromalog::standalone
