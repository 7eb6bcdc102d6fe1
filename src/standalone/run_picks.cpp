#include "standalone/run_picks.h"

#include "files/size_limit_signal.h"
#include "standalone/picker.h"
#include "standalone/standard_streams.h"

#include <iostream>
#include <stdexcept>

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

PickerSettings settingsOf(const CommandLine& line) {
    PickerSettings settings;
    settings.plugin = line.plugin.empty() ? PluginModule::besideProgram() : line.plugin;
    settings.services = line.services;
    settings.cmykProfile = line.cmykProfile;
    settings.hostVersion = line.hostVersion;
    settings.options = line.given;
    if (line.fail == "new") settings.failing = HandleHeap::Failing::newProc;
    if (line.fail == "lock") settings.failing = HandleHeap::Failing::lockProc;
    return settings;
}

std::string conversions(const PickerSettings& used) {
    if (used.services == ServicesKind::closed) return "by the closed form";
    const std::string profile = cmykProfileOf(used);
    std::string lcms = profile.empty() ? "by Little CMS, CMYK by the closed form: no profile is installed"
                                       : "by Little CMS, CMYK profile " + profile;
    if (used.services == ServicesKind::none) return lcms + "; the plug-in is offered none";
    if (used.services == ServicesKind::error) return lcms + "; those that the plug-in asks for fail";
    return lcms;
}

/// Says what the host uses, and what it tells the plug-in to use.
void sayWhatIsUsed(const CommandLine& line, const PickerSettings& used) {
    say("plug-in " + used.plugin);
    say("host version " + std::to_string(line.hostVersion) + ", components of " +
        std::to_string(static_cast<int>(line.scale)) + " bits");
    say("colour conversions " + conversions(used));
    for (const char* option : {"data-dir", "books", "drive", "screenshot", "fail"})
        if (const auto given = line.given.find(option); given != line.given.end())
            say(given->first + " " + given->second);
    if (misuseIsFatal()) say("misuse of the host is fatal");
}

/// The exit code of a pick that gave no colour; nothing where it did.
std::optional<int> failureOf(const Picked& picked) {
    if (!picked.problem.empty()) say(picked.problem);
    switch (picked.end) {
    case Picked::End::ended:
        return picked.exitCode;
    case Picked::End::noMemory:
        return exitNoMemory;
    case Picked::End::pluginError:
        return exitPluginError;
    default:
        return std::nullopt;
    }
}

int runScreenPick(Picker& picker, const CommandLine& line) {
    const Picked picked = picker.pick(line.colour);
    if (picker.taken().empty()) {
        if (picked.end == Picked::End::asOffered) return exitAsOffered;
        say(picked.problem.empty() ? "the plug-in takes no colours from the screen" : picked.problem);
        return exitBadArguments;
    }
    for (const auto& rgb : picker.taken())
        if (!print(formatColour(rgb, line.format))) return exitBadArguments;
    return exitPicked;
}

int runPicks(Picker& picker, const CommandLine& line) {
    if (line.fromScreen) return runScreenPick(picker, line);
    if (line.about) {
        picker.about();
        return exitPicked;
    }
    HostColour colour = line.colour;
    bool changed = false;
    for (int i = 0; i < line.picks; ++i) {
        const Picked picked = picker.pick(colour);
        if (const auto failure = failureOf(picked)) return *failure;
        colour = picked.colour;
        changed |= picked.end == Picked::End::changed;
        if (!print(formatColour(rgbOf(colour, line.scale, picker.converter()), line.format)))
            return exitBadArguments;
    }
    return changed ? exitPicked : exitAsOffered;
}

} // namespace

int runProgram(const CommandLine& line) {
#if defined(__GLIBC__)
    mallopt(M_ARENA_MAX, 1); // a heap a thread would cost more than its few moments of work
#endif
    try {
        const PickerSettings settings = settingsOf(line);
        if (line.verbose) sayWhatIsUsed(line, settings);
        Picker picker(settings);
        const int exitCode = runPicks(picker, line);
        const auto misuses = picker.end();
        for (const std::string& misuse : misuses)
            say("misuse of the host: " + misuse);
        return misuseIsFatal() && !misuses.empty() ? exitMisuse : exitCode;
    } catch (const std::runtime_error& error) {
        say(error.what());
        return exitBadArguments;
    }
}

} // namespace chromalog::standalone
