#include "standalone/run_picks.h"

#include "files/size_limit_signal.h"
#include "standalone/conversion/closed_converter.h"
#include "standalone/conversion/lcms_converter.h"
#include "standalone/host_run.h"
#include "standalone/plugin_module.h"
#include "standalone/standard_streams.h"

#include <cstdlib>
#include <future>
#include <iostream>
#include <stdexcept>
#include <string_view>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace chromalog::standalone {

namespace {

/// Prints a colour. Where that fails the person reads it in the complaint.
bool print(const std::string& colour) {
    const SizeLimitSignalBlock onlyFails;
    std::cout << colour << '\n';
    const std::string failure = flushStandardOutput();
    if (!failure.empty()) say(failure + "; the colour is " + colour);
    return failure.empty();
}

bool misuseIsFatal() {
    const char* strict = std::getenv("CHROMALOG_STRICT");
    return strict && std::string_view(strict) == "1";
}

std::string cmykProfile(const CommandLine& line) {
    return line.cmykProfile.empty() ? LcmsConverter::installedCmykProfile() : line.cmykProfile;
}

std::unique_ptr<ColourConverter> makeConverter(const CommandLine& line) {
    if (line.services == ServicesKind::closed) return std::make_unique<ClosedConverter>();
    return std::make_unique<LcmsConverter>(cmykProfile(line));
}

std::string conversions(const CommandLine& line) {
    if (line.services == ServicesKind::closed) return "by the closed form";
    const std::string profile = cmykProfile(line);
    const std::string lcms = profile.empty()
                                 ? "by Little CMS, CMYK by the closed form: no profile is installed"
                                 : "by Little CMS, CMYK profile " + profile;
    if (line.services == ServicesKind::none) return lcms + "; the plug-in is offered none";
    if (line.services == ServicesKind::error) return lcms + "; those that the plug-in asks for fail";
    return lcms;
}

/// Says what the host uses, and what it tells the plug-in to use.
void sayWhatIsUsed(const CommandLine& line, const std::string& plugin) {
    say("plug-in " + plugin);
    say("host version " + std::to_string(line.hostVersion) + ", components of " +
        std::to_string(static_cast<int>(line.scale)) + " bits");
    say("colour conversions " + conversions(line));
    for (const char* option : {"data-dir", "books", "drive", "screenshot", "fail"})
        if (const auto given = line.given.find(option); given != line.given.end())
            say(given->first + " " + given->second);
    if (misuseIsFatal()) say("misuse of the host is fatal");
}

void setUp(Host& host, const CommandLine& line) {
    host.version = line.hostVersion;
    host.options = line.given;
    host.offersColourServices = line.services != ServicesKind::none;
    // People need the memory more than the sight of a plug-in that reads before it writes.
    if (!misuseIsFatal()) host.handles.setFresh(Fresh::zeroes);
    if (line.services == ServicesKind::error) host.colours.failAlways();
    if (line.fail == "new") host.handles.setFailing(HandleHeap::Failing::newProc);
    if (line.fail == "lock") host.handles.setFailing(HandleHeap::Failing::lockProc);
}

/// The exit code of a pick that gave no colour; nothing where it did.
std::optional<int> failureOf(const Host& host, const HostRun::Answer& answer) {
    if (host.endWith) return host.endWith;
    if (answer.result == hostMemFullErr) {
        say("the plug-in could not get its memory");
        return exitNoMemory;
    }
    if (answer.result != hostNoErr && answer.result != hostUserCanceledErr) {
        say(answer.error.empty() ? "the plug-in ended with error " + std::to_string(answer.result)
                                 : answer.error);
        return exitPluginError;
    }
    return std::nullopt;
}

int runScreenPick(const Host& host, HostRun& run, const CommandLine& line) {
    const HostRun::Answer answer = run.pick(line.colour);
    if (answer.result == hostUserCanceledErr) return exitAsOffered;
    if (host.taken.empty()) {
        say(answer.error.empty() ? "the plug-in takes no colours from the screen" : answer.error);
        return exitBadArguments;
    }
    for (const auto& rgb : host.taken)
        if (!print(formatColour(rgb, line.format))) return exitBadArguments;
    return exitPicked;
}

int runPicks(Host& host, HostRun& run, const CommandLine& line) {
    if (line.fromScreen) return runScreenPick(host, run, line);
    if (line.about) {
        run.about();
        return exitPicked;
    }
    HostColour colour = line.colour;
    bool changed = false;
    for (int i = 0; i < line.picks; ++i) {
        const HostRun::Answer answer = run.pick(colour);
        if (const auto failure = failureOf(host, answer)) return *failure;
        // The interface has no other sign of a pick than that the components differ; an answer is always RGB.
        if (answer.colour.components != colour.components) {
            colour = {Space::rgb, answer.colour.components};
            changed = true;
        }
        if (!print(formatColour(rgbOf(colour, line.scale, host.colours.converter()), line.format)))
            return exitBadArguments;
    }
    return changed ? exitPicked : exitAsOffered;
}

void reportMisuse(const Host& host) {
    for (const std::string& misuse : host.ledger.misuses())
        say("misuse of the host: " + misuse);
}

} // namespace

int runProgram(const CommandLine& line) {
#if defined(__GLIBC__)
    mallopt(M_ARENA_MAX, 1); // a heap a thread would cost more than its few moments of work
#endif
    try {
        const std::string plugin = line.plugin.empty() ? PluginModule::besideProgram() : line.plugin;
        if (line.verbose) sayWhatIsUsed(line, plugin);
        // Either takes some milliseconds: a profile is made ready while the module is linked.
        auto converter = std::async(makeConverter, line);
        auto loaded = std::make_unique<PluginModule>(plugin);
        Host host(converter.get());
        setUp(host, line);
        int exitCode = exitPicked;
        {
            const auto module = std::move(loaded);
            HostRun run(host, module->entry());
            exitCode = runPicks(host, run, line);
            run.end();
            module->unload(); // before the run ends: what it does meanwhile counts too
        }
        reportMisuse(host);
        return misuseIsFatal() && !host.ledger.misuses().empty() ? exitMisuse : exitCode;
    } catch (const std::runtime_error& error) {
        say(error.what());
        return exitBadArguments;
    }
}

} // namespace chromalog::standalone
