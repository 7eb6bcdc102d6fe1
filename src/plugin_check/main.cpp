#include "plugin_check/check_process.h"
#include "plugin_check/elf_file.h"
#include "plugin_check/verdicts.h"

#include "abi/picker_record.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <sys/prctl.h>

namespace chromalog::plugin_check {
namespace {

namespace fs = std::filesystem;

struct CommandLine {
    Plan plan;
    std::vector<std::string> only;
    std::string here;
    bool list = false, json = false, noPick = false;
};

constexpr const char* kFooter =
    "Each check runs in a process of its own. A dialog is never shown: a plug-in that asks the host's own "
    "suite hears \"accept\" and presses OK itself, one without a dialog answers at once. Any other runs "
    "into the time limit; with --attended its dialogs are shown and a person presses OK in each, with "
    "--no-pick none opens.\n\n"
    "Exit code: 0 no check failed; 1 some did; 2 some could not be made.";

const CLI::Validator kCheckName(
    [](std::string& name) {
        return checkNamed(name) ? std::string() : "no check is called " + name + "; --list names them";
    },
    "NAME");

void addOptions(CLI::App& app, CommandLine& line) {
    Request& request = line.plan.request;
    app.add_option("FILE", request.plugin, "The plug-in's module")->type_name("");
    app.add_flag("--list", line.list, "Name the checks and what each proves");
    app.add_option("--only", line.only, "Make this check alone; may be given several times")
        ->check(kCheckName)
        ->allow_extra_args(false); // the next word is the file
    app.add_flag("--json", line.json, "Print the results as JSON");
    app.add_flag("--attended", request.attended,
                 "Show dialogs: a person presses OK in each, without a time limit");
    app.add_flag("--no-pick", line.noPick, "Make the checks that open no dialog");
    app.add_option("--limit", line.plan.limit, "Seconds that a check may take (20; memory 60)")
        ->check(CLI::Range(1, 86'400))
        ->type_name("N");
    app.add_option("--here", line.here, "Make this check in this very process, as a debugger wants it")
        ->check(kCheckName);
    app.add_option("--folder", request.folder)->group(""); // where a check's own process tells what it found
}

int complain(const std::string& text) {
    std::cerr << "plugin_check: " << text << '\n';
    return 2;
}

void listChecks(bool json) {
    if (json) {
        std::cout << listAsJson();
        return;
    }
    for (const Check& check : checks())
        std::cout << check.name << ": " << check.proves << '\n';
}

/// Nothing was checked: why, for people and, where it was asked for, for a program.
int nothingChecked(const CommandLine& line, const std::string& why) {
    if (line.json) std::cout << asJson({}, line.plan.request.plugin, why) << std::flush;
    return complain(why);
}

/// Whether the file has an entry that can be called; throws std::runtime_error where it is no library.
bool hasEntry(const std::string& file) {
    if (!fs::exists(file)) throw std::runtime_error(file + ": no such file");
    if (!fs::is_regular_file(file)) throw std::runtime_error(file + " is no file");
    try {
        const ElfFile elf(file);
        return std::ranges::count(elf.exportedSymbols(), kPluginMainSymbol) > 0 &&
               !elf.exportsData(kPluginMainSymbol);
    } catch (const std::exception& error) {
        throw std::runtime_error(file + " is no library: " + error.what());
    }
}

/// In a check's own process, or for a debugger.
int runHere(const CommandLine& line) {
    Request request = line.plan.request;
    request.check = line.here;
    const Check& check = *checkNamed(line.here);
    if (!request.folder.empty()) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        writeFindings(makeCheck(check, request), fs::path(request.folder) / kFindingsFile);
        return 0;
    }
    const OwnFolder own;
    request.folder = own.path();
    const Findings found = makeCheck(check, request);
    if (!found.unable.empty()) return complain(found.unable);
    for (const Fault& fault : found.faults)
        std::cout << "FAILED " << fault.check << ": " << fault.text << '\n';
    return found.faults.empty() ? 0 : 1;
}

void planChecks(CommandLine& line) {
    Plan& plan = line.plan;
    for (const Check& check : checks()) {
        const bool wanted =
            line.only.empty() ? !line.noPick || !check.picks : std::ranges::count(line.only, check.name) > 0;
        if (wanted) plan.checks.push_back(&check);
    }
    if (plan.request.attended && !plan.limit) plan.limit = 86'400;
}

int runAll(CommandLine& line) {
    Plan& plan = line.plan;
    const bool loadable = hasEntry(plan.request.plugin);
    planChecks(line);
    // Without an entry there is nothing more to check.
    if (!loadable) plan.checks = {checkNamed("exports")};
    const auto verdicts = carryOut(plan);
    const auto made = [](const Verdict& v) {
        return v.end == Verdict::End::ok || v.end == Verdict::End::failed;
    };
    const auto unable = std::ranges::find(verdicts, Verdict::End::unable, &Verdict::end);
    if (unable != verdicts.end() && std::ranges::none_of(verdicts, made))
        return nothingChecked(line, unable->lines.front());
    std::cout << (line.json ? asJson(verdicts, plan.request.plugin) : asText(verdicts)) << std::flush;
    return std::cout ? exitCodeOf(verdicts) : complain("cannot write to standard output");
}

int run(int argc, char** argv) {
    CommandLine line;
    CLI::App app("Checks a colour-picker plug-in as a strict host does.", "plugin_check");
    app.set_help_flag("--help", "Print this text");
    app.footer(kFooter);
    addOptions(app, line);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& wanted) {
        return app.exit(wanted);
    } catch (const CLI::ParseError& error) {
        return complain(error.what());
    }
    if (line.list) {
        listChecks(line.json);
        return 0;
    }
    if (line.plan.request.plugin.empty()) return complain("which plug-in? plugin_check FILE.so");
    try {
        return line.here.empty() ? runAll(line) : runHere(line);
    } catch (const std::exception& error) {
        return line.here.empty() ? nothingChecked(line, error.what()) : complain(error.what());
    }
}

} // namespace
} // namespace chromalog::plugin_check

int main(int argc, char** argv) {
    return chromalog::plugin_check::run(argc, argv);
}
