#include "standalone/command_line.h"

#include "base/translated.h"
#include "files/size_limit_signal.h"
#include "standalone/data_folder.h"
#include "standalone/standard_streams.h"

#include <CLI/CLI.hpp>
#include <filesystem>

namespace chromalog::standalone {

namespace {

namespace fs = std::filesystem;

const std::map<std::string, Format> kFormats{{"hex", Format::hex},
                                             {"rgb8", Format::rgb8},
                                             {"rgb16", Format::rgb16},
                                             {"css", Format::css},
                                             {"json", Format::json}};
const std::map<std::string, ServicesKind> kServices{{"lcms", ServicesKind::lcms},
                                                    {"closed", ServicesKind::closed},
                                                    {"none", ServicesKind::none},
                                                    {"error", ServicesKind::error}};

/// Says which there are where it is none of them.
std::string knownLanguage(const std::string& code) {
    if (isLanguage(code)) return {};
    std::string all;
    for (const std::string_view known : kLanguages)
        all.append(all.empty() ? "" : ", ").append(known);
    return "no language " + (code.empty() ? "''" : code) + " is known; these are: " + all;
}

const CLI::Validator kPictureFile(
    [](std::string& path) {
        std::error_code ignored;
        if (!path.ends_with(".png") && !path.ends_with(".PNG")) return "no .png file: " + path;
        const fs::path folder = fs::path(path).parent_path();
        if (!folder.empty() && !fs::is_directory(folder, ignored))
            return "no such folder: " + folder.string();
        return fs::is_directory(path, ignored) ? "is a directory: " + path : std::string();
    },
    "FILE.png");

bool takesValue(const CLI::Option& option) {
    return option.get_items_expected_max() > 0;
}

/// The kind of value, without what the checks say of it.
std::string valueKind(const CLI::Option& option) {
    if (!takesValue(option)) return "true|false";
    return option.get_type_name().substr(0, option.get_type_name().find(':'));
}

/// Help lines with the kind of value alone: the checks behind it would only repeat it.
class ShortHelp : public CLI::Formatter {
  public:
    std::string make_option_opts(const CLI::Option* option) const override {
        return takesValue(*option) ? " " + valueKind(*option) : std::string();
    }
};

constexpr const char* kRecover = "recover";
constexpr const char* kDataDirHelp = "Folder in the place of the user's applications directory";

/// Lists that were kept are brought back without the plug-in.
void addRecover(CLI::App& app, RecoverRequest& request) {
    CLI::App* recover = app.add_subcommand(kRecover, "Show or bring back earlier lists that were kept");
    auto* list = recover->add_flag("--list", request.list, "Show what each copy holds");
    recover->add_option("NAME", request.name, "Bring this copy back")->excludes(list)->type_name("");
    recover->add_option("--data-dir", request.folder, kDataDirHelp)->type_name("DIR");
    recover->footer(
        "Exit code: 0 done; 2 there is no such copy, it cannot be brought back, or the folder of the "
        "lists cannot be read.");
}

/// What is wrong with a request to recover; empty where nothing is.
std::string completeRecover(const CLI::App& recover, RecoverRequest& request, const std::string& folder) {
    if (request.list == !request.name.empty()) return "recover: either --list or the NAME of a copy";
    if (recover.count("--data-dir") == 0) request.folder = folder;
    const bool named = recover.count("--data-dir") > 0 || recover.get_parent()->count("--data-dir") > 0;
    return named && request.folder.empty() ? "--data-dir: the name of the folder is empty" : "";
}

constexpr const char* kPick = "pick";

/// Takes all options of the program; those of the dialog mean nothing to it.
void addPick(CLI::App& app) {
    CLI::App* pick =
        app.add_subcommand(kPick, "Take colours from the screen and print them, without the dialog");
    pick->fallthrough();
    pick->add_flag_callback(
        "--json", [] {}, "Print them as JSON");
    pick->footer(
        "--format prints them in another form, as without pick. A click takes a colour; with Shift it "
        "goes on, and each is printed. Escape takes none.\n\n"
        "Exit code: 0 a colour was taken; 1 none; 2 none can be.");
}

void completePick(const CLI::App& pick, CommandLine& line) {
    line.fromScreen = pick.parsed();
    if (!line.fromScreen) return;
    line.given[kPick] = "1";
    if (pick.count("--json") > 0) line.format = Format::json;
}

void addHostOptions(CLI::App& app, CommandLine& line, std::string& colour) {
    app.add_option(
           "--color", colour,
           "Offer this colour (#3366cc): #rrggbb, #rgb, a name or an opaque function of CSS as 'hsl(173 58% "
           "39%)', or SPACE:c0,c1,... with SPACE one of rgb hsb cmyk lab gray and its 16-bit components as "
           "the record holds them")
        ->type_name("COLOUR");
    app.add_option("--format", "Print the colour in this form (hex)")
        ->check(CLI::IsMember(kFormats))
        ->type_name("hex|rgb8|rgb16|css|json");
    app.add_option("--picks", line.picks, "Run N picks in one host run")
        ->check(CLI::Range(1, 1'000'000))
        ->type_name("N");
    app.add_flag("--about", line.about, "Make the about call instead of a pick");
    app.add_option("--plugin", line.plugin, "The plug-in's module; else the one beside this program")
        ->check(CLI::ExistingFile)
        ->type_name("FILE");
    app.add_option("--host-version", line.hostVersion, "Major version that the host reports (16)")
        ->check(CLI::Range(1, 32767))
        ->type_name("N");
    app.add_option("--color-services",
                   "Colour conversions by lcms, by the closed form, none, or always failing")
        ->check(CLI::IsMember(kServices))
        ->type_name("lcms|closed|none|error");
    app.add_option("--cmyk-profile", line.cmykProfile, "CMYK profile for lcms")
        ->check(CLI::ExistingFile)
        ->type_name("FILE");
    app.add_option("--component-scale", "Bits that the record's components hold (16)")
        ->check(CLI::IsMember({"8", "16"}))
        ->type_name("8|16");
    app.add_option("--fail", line.fail, "Refuse memory at the new or at the lock of a handle")
        ->check(CLI::IsMember({"new", "lock"}))
        ->type_name("new|lock");
    app.add_flag("--verbose", line.verbose, "Say on standard error what the host uses");
}

/// Options that act inside the plug-in, which asks for them by name.
void addPluginOptions(CLI::App& app) {
    app.add_flag_callback(
        "--accept", [] {}, "Press OK as soon as the dialog shows");
    app.add_flag_callback(
        "--cancel", [] {}, "Press Cancel as soon as the dialog shows");
    app.add_flag_callback(
        "--option", [] {}, "As if the Option key were held while the picker opens");
    app.add_flag_callback(
        "--clipboard", [] {},
        "Copy the colour that OK returns, and stay without a window until another program copies something");
    app.add_option("--screenshot",
                   "Write a picture of the dialog, which stays open unless --accept or --cancel closes it")
        ->check(kPictureFile)
        ->type_name("FILE.png");
    app.add_option("--drive", "Play a script against the dialog")
        ->check(CLI::ExistingFile)
        ->type_name("FILE");
    app.add_option("--language",
                   "Language of the windows; the desktop's where none is given, a script's is English")
        ->check(CLI::Validator(knownLanguage, ""))
        ->type_name("en|de|fr");
    app.add_option("--books", "Folder of colour books")->check(CLI::ExistingDirectory)->type_name("DIR");
    app.add_option("--data-dir", kDataDirHelp)->type_name("DIR");
}

/// The option that a word of the command line names, with or without "=VALUE".
const CLI::Option* optionNamed(const CLI::App& app, const std::string& word) {
    return word.starts_with("--") ? app.get_option_no_throw(word.substr(0, word.find('='))) : nullptr;
}

/// Names an option whose value is not there; the parser would take the next option for it.
std::string missingValue(const CLI::App& app, const std::vector<std::string>& words) {
    for (std::size_t i = 0; i < words.size(); ++i) {
        const CLI::Option* option = optionNamed(app, words[i]);
        if (!option) continue;
        const bool hasNext = i + 1 < words.size() && !optionNamed(app, words[i + 1]);
        const std::size_t sign = words[i].find('=');
        const bool assigns = sign != std::string::npos;
        if (assigns ? sign + 1 == words[i].size() : takesValue(*option) && !hasNext)
            return option->get_name() + " lacks its value: " + valueKind(*option);
        if (!assigns && takesValue(*option)) ++i;
    }
    return {};
}

/// What the plug-in may ask for. A flag may be taken back (--accept=false): it is then not given.
std::map<std::string, std::string> optionsGiven(const CLI::App& app) {
    std::map<std::string, std::string> given;
    for (const CLI::Option* option : app.get_options())
        if (!option->get_lnames().empty() && option->count() > 0 &&
            (takesValue(*option) || option->as<bool>()))
            given[option->get_lnames().front()] = takesValue(*option) ? option->results().back() : "1";
    return given;
}

/// Palettes that the plug-in is to import, a line each.
void addFiles(CLI::App& app, std::vector<std::string>& files) {
    app.add_option("FILE", files, "Open with the Import of these palettes")
        ->check(CLI::Validator(CLI::ExistingFile).description(""))
        ->type_name("");
}

std::string joinedLines(const std::vector<std::string>& files) {
    std::string lines;
    for (const std::string& file : files)
        lines.append(lines.empty() ? "" : "\n").append(file);
    return lines;
}

void readTables(CommandLine& line) {
    const auto text = [&line](const char* key) {
        return line.given.contains(key) ? line.given.at(key) : std::string();
    };
    if (const auto format = kFormats.find(text("format")); format != kFormats.end())
        line.format = format->second;
    if (const auto kind = kServices.find(text("color-services")); kind != kServices.end())
        line.services = kind->second;
    if (text("component-scale") == "8") line.scale = Scale::eight;
}

/// Makes sure of the folders that were named. Returns what is wrong, or nothing.
std::string completeFolders(const CLI::App& app, CommandLine& line, RecoverRequest& request) {
    const auto folder = line.given.find("data-dir");
    const bool named = folder != line.given.end();
    const CLI::App* recover = app.get_subcommand(kRecover);
    if (!recover->parsed()) return named ? makeDataFolder(folder->second) : std::string();
    line.recover = request;
    return completeRecover(*recover, *line.recover, named ? folder->second : std::string());
}

int complain(const std::string& text) {
    say(text);
    return 2;
}

constexpr const char* kExitCodes =
    "Palettes without a window: chromalog convert --help, chromalog nearest --help.\n\nExit code: 0 the "
    "colour changed; 1 it is as offered; 2 a bad colour, file or option, or output that "
    "cannot be written; 3 the plug-in got no memory; 4 it misused the host, where CHROMALOG_STRICT=1 makes "
    "that fatal; 5 it ended with an error of its own.";

/// Prints help or version.
int show(const CLI::App& app, const CLI::Success& wanted) {
    const int exitCode = app.exit(wanted);
    const std::string failure = flushStandardOutput();
    return failure.empty() ? exitCode : complain(failure);
}

/// Options that exclude one another; empty where there are none. What presses a button at once would not
/// find it behind the Import.
std::string excluded(const std::map<std::string, std::string>& given) {
    const bool accept = given.contains("accept"), cancel = given.contains("cancel");
    if (accept && cancel) return "--accept excludes --cancel";
    if (!given.contains("import") || !(accept || cancel)) return {};
    return std::string(accept ? "--accept" : "--cancel") + " excludes FILE";
}

std::string wrongColour(const std::string& text) {
    const std::string missing = missingComponents(text);
    return "not a colour: " + text + (missing.empty() ? missing : "; " + missing);
}

/// Reads the words into what the options are bound to; the exit code where the program ends here.
std::optional<int> read(CLI::App& app, int argc, const char* const* argv) {
    if (argc > 1)
        if (const auto missing = missingValue(app, {argv + 1, argv + argc}); !missing.empty())
            return complain(missing);
    try {
        app.parse(argc, argv);
        return std::nullopt;
    } catch (const CLI::Success& wanted) {
        return show(app, wanted);
    } catch (const CLI::ParseError& error) {
        return complain(error.what());
    }
}

} // namespace

std::optional<CommandLine> parseCommandLine(int argc, const char* const* argv, int& exitCode) {
    const SizeLimitSignalBlock onlyFails; // help and complaints are written to whatever file
    CommandLine line;
    std::string colour = "#3366cc"; // bright enough for the wheel to show its colours
    CLI::App app("Opens the Chromalog colour picker and prints the colour that was picked.", "chromalog");
    app.set_help_flag("--help", "Print this text");
    app.set_version_flag("--version", "chromalog " CHROMALOG_VERSION, "Print the version");
    app.formatter(std::make_shared<ShortHelp>());
    app.footer(kExitCodes);
    addHostOptions(app, line, colour);
    addPluginOptions(app);
    std::vector<std::string> files;
    addFiles(app, files);
    RecoverRequest request;
    addRecover(app, request);
    addPick(app);
    if (const auto ends = read(app, argc, argv)) {
        exitCode = *ends;
        return std::nullopt;
    }
    line.given = optionsGiven(app);
    if (!files.empty()) line.given["import"] = joinedLines(files);
    if (const std::string wrong = completeFolders(app, line, request); !wrong.empty()) {
        exitCode = complain(wrong);
        return std::nullopt;
    }
    readTables(line);
    completePick(*app.get_subcommand(kPick), line);
    const auto parsed = readColour(colour, line.scale);
    const std::string wrong = excluded(line.given);
    if (!parsed || !wrong.empty()) {
        exitCode = complain(wrong.empty() ? wrongColour(colour) : wrong);
        return std::nullopt;
    }
    line.colour = *parsed;
    return line;
}

} // namespace chromalog::standalone
