#pragma once

#include <libgimp/gimp.h>

#include <string>

namespace chromalog {

/// What a procedure gives back. GIMP shows the text of an error, or hands it to the script that called.
struct ProcedureResult {
    GimpPDBStatusType status = GIMP_PDB_SUCCESS;
    std::string text{}; ///< of an error, or what the procedure returns; empty: neither
};

/// The arguments of one call: a script may leave some out.
struct ProcedureArguments {
    int count;
    const GimpParam* values;

    GimpRunMode runMode() const { return static_cast<GimpRunMode>(number(0)); }
    int number(int index) const {
        return index < count && values[index].type == GIMP_PDB_INT32 ? values[index].data.d_int32 : 0;
    }
    std::string text(int index) const {
        const bool given = index < count && values[index].type == GIMP_PDB_STRING;
        return given && values[index].data.d_string ? values[index].data.d_string : "";
    }
};

/// GIMP hands texts over that its own allocator made.
inline std::string takenText(char* text) {
    std::string taken(text ? text : "");
    g_free(text);
    return taken;
}

} // namespace chromalog
