#include "gimp/palette_procedures.h"

#include "gimp/stored_list.h"

#include <memory>
#include <stdexcept>

namespace chromalog {
namespace {

struct ListProcedure {
    const char* name;
    const char* label;
    int list;
    bool toList;
};

constexpr ListProcedure kProcedures[]{
    {"plug-in-chromalog-palette-to-list-1", "To Chromalog List 1", 1, true},
    {"plug-in-chromalog-palette-to-list-2", "To Chromalog List 2", 2, true},
    {"plug-in-chromalog-palette-from-list-1", "From Chromalog List 1", 1, false},
    {"plug-in-chromalog-palette-from-list-2", "From Chromalog List 2", 2, false}};

void install(const ListProcedure& procedure) {
    static const GimpParamDef arguments[]{
        {GIMP_PDB_INT32, const_cast<char*>("run-mode"),
         const_cast<char*>("The run mode { RUN-INTERACTIVE (0), RUN-NONINTERACTIVE (1) }")},
        {GIMP_PDB_STRING, const_cast<char*>("palette"),
         const_cast<char*>("The palette's name; the context's palette where it is empty")}};
    static const GimpParamDef made[]{
        {GIMP_PDB_STRING, const_cast<char*>("new-palette"), const_cast<char*>("The new palette's name")}};
    const char* blurb = procedure.toList
                            ? "Put a palette into a list of Chromalog's, in the place of what is there"
                            : "Make a palette of a list of Chromalog's";
    gimp_install_procedure(procedure.name, blurb,
                           "Colors and their names; the list keeps the palette's name.", "Chromalog",
                           "Chromalog", "2026", procedure.label, "", GIMP_PLUGIN, procedure.toList ? 2 : 1,
                           procedure.toList ? 0 : 1, arguments, procedure.toList ? nullptr : made);
    gimp_plugin_menu_register(procedure.name, "<Palettes>/Palette");
}

Palette paletteOfGimp(const std::string& name) {
    int count = 0;
    if (!gimp_palette_get_info(name.c_str(), &count)) throw std::runtime_error("there is no palette " + name);
    const std::unique_ptr<GimpRGB, decltype(&g_free)> colours(gimp_palette_get_colors(name.c_str(), &count),
                                                              g_free);
    Palette palette{name, {}};
    for (int i = 0; colours && i < count; ++i) {
        char* text = nullptr;
        gimp_palette_entry_get_name(name.c_str(), i, &text);
        PaletteColour colour;
        colour.name = takenText(text);
        const GimpRGB& rgb = colours.get()[i];
        colour.components = {rgb.r, rgb.g, rgb.b};
        addColour(palette, std::move(colour));
    }
    return palette;
}

/// The name that GIMP has given it: it makes equal ones differ.
std::string makeGimpPalette(const Palette& palette) {
    std::string name = takenText(gimp_palette_new(palette.title.c_str()));
    bool taken = !name.empty();
    for (const PaletteColour& colour : palette.colours) {
        const auto& c = colour.components;
        const GimpRGB rgb{c[0], c[1], c[2], 1};
        int index = 0;
        taken = taken && gimp_palette_add_entry(name.c_str(), colour.name.c_str(), &rgb, &index);
    }
    if (!taken) throw std::runtime_error("GIMP does not take the palette");
    return name;
}

ProcedureResult toList(int list, std::string palette) {
    if (palette.empty()) palette = takenText(gimp_context_get_palette());
    std::string said;
    for (const std::string& remark : replaceStoredList(list, paletteOfGimp(palette)))
        said += (said.empty() ? "" : "\n") + remark;
    if (!said.empty()) gimp_message(said.c_str());
    return {};
}

} // namespace

void installPaletteProcedures() {
    for (const ListProcedure& procedure : kProcedures)
        install(procedure);
}

std::optional<ProcedureResult> runPaletteProcedure(std::string_view name,
                                                   const ProcedureArguments& arguments) {
    for (const ListProcedure& procedure : kProcedures) {
        if (name != procedure.name) continue;
        if (procedure.toList) return toList(procedure.list, arguments.text(1));
        return ProcedureResult{GIMP_PDB_SUCCESS, makeGimpPalette(readStoredList(procedure.list))};
    }
    return std::nullopt;
}

} // namespace chromalog
