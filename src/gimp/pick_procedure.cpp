#include "gimp/pick_procedure.h"

#include "gimp/gimp_colour.h"
#include "gimp/module_place.h"
#include "standalone/conversion/lcms_converter.h"
#include "standalone/picker.h"

#include <cstdlib>
#include <memory>
#include <optional>
#include <stdexcept>

namespace chromalog {
namespace {

/// What GIMP keeps for us until it ends.
struct LastPick {
    GimpChannels colour;
    int background;
};

std::optional<LastPick> lastPick() {
    LastPick last;
    if (gimp_get_data_size(kPickProcedure) != sizeof last) return std::nullopt;
    if (!gimp_get_data(kPickProcedure, &last)) return std::nullopt;
    return last;
}

GimpChannels gimpsColour(bool background) {
    GimpRGB colour{};
    if (!(background ? gimp_context_get_background : gimp_context_get_foreground)(&colour))
        throw std::runtime_error("GIMP does not tell its colour");
    return {colour.r, colour.g, colour.b};
}

void setGimpsColour(const LastPick& picked) {
    const GimpRGB colour{picked.colour[0], picked.colour[1], picked.colour[2], 1};
    if (!(picked.background ? gimp_context_set_background : gimp_context_set_foreground)(&colour))
        throw std::runtime_error("GIMP does not take the colour");
}

/// The CMYK profile of GIMP's preferences; empty where there is none that can serve.
std::string gimpsCmykProfile() {
    const std::unique_ptr<GimpColorConfig, decltype(&g_object_unref)> preferences(
        gimp_get_color_configuration(), g_object_unref);
    char* path = nullptr;
    if (preferences) g_object_get(preferences.get(), "cmyk-profile", &path, nullptr);
    std::string profile = takenText(path);
    if (profile.empty()) return {};
    try {
        const standalone::LcmsConverter proof(profile);
        return profile;
    } catch (const std::runtime_error& error) {
        gimp_message(
            (std::string("The CMYK profile of the preferences is not used: ") + error.what()).c_str());
        return {};
    }
}

standalone::PickerSettings settings() {
    standalone::PickerSettings settings;
    settings.plugin = modulePath();
    settings.cmykProfile = gimpsCmykProfile();
    if (const char* script = std::getenv("CHROMALOG_DRIVE"); script && *script)
        settings.options["drive"] = script;
    return settings;
}

/// GIMP may have been told of another display than its environment names.
void takeGimpsDisplay() {
    const char* display = gimp_display_name();
    if (display && *display) ::setenv("DISPLAY", display, 1);
}

standalone::Picked pick(const GimpChannels& offered) {
    takeGimpsDisplay();
    standalone::Picker picker(settings());
    standalone::Picked picked = picker.pick(offeredColour(offered));
    const auto misuses = picker.end();
    for (const std::string& misuse : misuses)
        g_printerr("chromalog: misuse of the host: %s\n", misuse.c_str());
    if (standalone::misuseIsFatal() && !misuses.empty())
        throw std::runtime_error("misuse of the host: " + misuses.front());
    return picked;
}

} // namespace

void installPickProcedure() {
    static const GimpParamDef arguments[]{
        {GIMP_PDB_INT32, const_cast<char*>("run-mode"),
         const_cast<char*>("The run mode { RUN-INTERACTIVE (0), RUN-NONINTERACTIVE (1), "
                           "RUN-WITH-LAST-VALS (2) }: the last sets what was picked before, the others ask")},
        {GIMP_PDB_INT32, const_cast<char*>("background"),
         const_cast<char*>("The color to pick { FOREGROUND (0), BACKGROUND (1) }")}};
    gimp_install_procedure(
        kPickProcedure, "Pick a color with Chromalog",
        "Opens Chromalog with the foreground or background color, and sets the one that is "
        "picked there. Cancel changes nothing.",
        "Chromalog", "Chromalog", "2026", "Chromalog...", "", GIMP_PLUGIN, G_N_ELEMENTS(arguments), 0,
        arguments, nullptr);
    gimp_plugin_menu_register(kPickProcedure, "<Image>/Colors");
}

ProcedureResult runPickProcedure(const ProcedureArguments& arguments) {
    using End = standalone::Picked::End;
    if (arguments.runMode() == GIMP_RUN_WITH_LAST_VALS) {
        const auto last = lastPick();
        if (!last) throw std::runtime_error("no color has been picked yet");
        setGimpsColour(*last);
        return {};
    }
    const int background = arguments.number(1) != 0;
    const standalone::Picked picked = pick(gimpsColour(background));
    if (picked.end == End::asOffered) return {GIMP_PDB_CANCEL};
    if (picked.end == End::noDialog) throw std::runtime_error("there is no display to show the dialog on");
    if (picked.end == End::ended) throw std::runtime_error("the script could not be played");
    if (picked.end != End::changed) throw std::runtime_error(picked.problem);
    const LastPick now{pickedColour(picked.colour), background};
    setGimpsColour(now);
    gimp_set_data(kPickProcedure, &now, sizeof now);
    return {};
}

} // namespace chromalog
