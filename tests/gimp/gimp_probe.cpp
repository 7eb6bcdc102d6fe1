// Beside the plug-in in a GIMP that is tried: tells every bit of what GIMP keeps, which scripts see as bytes.
#include "gimp/procedure.h"

#include <cstdio>
#include <cstring>

namespace chromalog::test {
namespace {

std::string textOf(const GimpRGB& colour) {
    char text[100];
    std::snprintf(text, sizeof text, "%.17g %.17g %.17g", colour.r, colour.g, colour.b);
    return text;
}

std::string context() {
    GimpRGB foreground{}, background{};
    gimp_context_get_foreground(&foreground);
    gimp_context_get_background(&background);
    return textOf(foreground) + " on " + textOf(background);
}

/// A line a colour: its channels and its name.
std::string palette(const std::string& name) {
    int count = 0;
    if (!gimp_palette_get_info(name.c_str(), &count)) return "no palette";
    std::string lines;
    for (int i = 0; i < count; ++i) {
        GimpRGB colour{};
        gimp_palette_entry_get_color(name.c_str(), i, &colour);
        char* own = nullptr;
        gimp_palette_entry_get_name(name.c_str(), i, &own);
        lines += textOf(colour) + " " + takenText(own) + "\n";
    }
    return lines;
}

/// Scheme takes minutes over such texts.
std::string difference(const std::string& one, const std::string& other) {
    return palette(one) == palette(other)
               ? "the same"
               : palette(one).substr(0, 200) + " and " + palette(other).substr(0, 200);
}

/// Colours of 16 bits a channel, all different, with names that have more than ASCII.
std::string newPalette(const char* wanted, int count) {
    const std::string name = takenText(gimp_palette_new(wanted));
    for (int i = 0; i < count; ++i) {
        const GimpRGB colour{i * 13 % 65536 / 65535.0, (65535 - i) / 65535.0, i * 40503 % 65536 / 65535.0, 1};
        int index = 0;
        gimp_palette_add_entry(name.c_str(), ("Größe " + std::to_string(i)).c_str(), &colour, &index);
    }
    return name;
}

std::string setForeground(const ProcedureArguments& arguments) {
    const auto real = [&](int index) { return arguments.values[index].data.d_float; };
    const GimpRGB colour{real(1), real(2), real(3), 1};
    gimp_context_set_foreground(&colour);
    return context();
}

void install(const char* name, const GimpParamDef* arguments, int count) {
    static const GimpParamDef text[]{{GIMP_PDB_STRING, const_cast<char*>("text"), const_cast<char*>("")}};
    gimp_install_procedure(name, "", "", "", "", "", nullptr, "", GIMP_PLUGIN, count, 1, arguments, text);
}

void query() {
    static char mode[] = "run-mode", name[] = "name", other[] = "other", number[] = "number", none[] = "";
    static const GimpParamDef named[]{
        {GIMP_PDB_INT32, mode, none}, {GIMP_PDB_STRING, name, none}, {GIMP_PDB_INT32, number, none}};
    static const GimpParamDef both[]{
        {GIMP_PDB_INT32, mode, none}, {GIMP_PDB_STRING, name, none}, {GIMP_PDB_STRING, other, none}};
    static const GimpParamDef reals[]{{GIMP_PDB_INT32, mode, none},
                                      {GIMP_PDB_FLOAT, number, none},
                                      {GIMP_PDB_FLOAT, number, none},
                                      {GIMP_PDB_FLOAT, number, none}};
    install("probe-context", named, 1);
    install("probe-difference", both, 3);
    install("probe-new-palette", named, 3);
    install("probe-set-foreground", reals, 4);
}

void run(const char* name, int count, const GimpParam* given, int* resultCount, GimpParam** results) {
    static std::string text;
    static GimpParam values[2];
    const ProcedureArguments arguments{count, given};
    if (std::strcmp(name, "probe-context") == 0) text = context();
    if (std::strcmp(name, "probe-difference") == 0) text = difference(arguments.text(1), arguments.text(2));
    if (std::strcmp(name, "probe-new-palette") == 0)
        text = newPalette(arguments.text(1).c_str(), arguments.number(2));
    if (std::strcmp(name, "probe-set-foreground") == 0) text = setForeground(arguments);
    values[0].type = GIMP_PDB_STATUS;
    values[0].data.d_status = GIMP_PDB_SUCCESS;
    values[1].type = GIMP_PDB_STRING;
    values[1].data.d_string = text.data();
    *resultCount = 2;
    *results = values;
}

} // namespace
} // namespace chromalog::test

extern "C" {
const GimpPlugInInfo PLUG_IN_INFO{nullptr, nullptr, chromalog::test::query, chromalog::test::run};
}

MAIN()
