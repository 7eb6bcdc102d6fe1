// GIMP's plug-in: a program that GIMP starts for each call of one of its procedures.
#include "gimp/palette_procedures.h"
#include "gimp/pick_procedure.h"

#include <exception>

namespace chromalog {
namespace {

ProcedureResult call(const char* name, const ProcedureArguments& arguments) try {
    if (const auto result = runPaletteProcedure(name, arguments)) return *result;
    return runPickProcedure(arguments);
} catch (const std::exception& error) {
    return {GIMP_PDB_EXECUTION_ERROR, error.what()};
}

void query() {
    installPickProcedure();
    installPaletteProcedures();
}

void run(const char* name, int count, const GimpParam* arguments, int* resultCount, GimpParam** results) {
    static ProcedureResult result; // GIMP's library reads what it is given after this function
    static GimpParam values[2];
    result = call(name, {count, arguments});
    values[0].type = GIMP_PDB_STATUS;
    values[0].data.d_status = result.status;
    values[1].type = GIMP_PDB_STRING;
    values[1].data.d_string = result.text.data();
    *resultCount = result.text.empty() ? 1 : 2;
    *results = values;
}

} // namespace
} // namespace chromalog

extern "C" {
const GimpPlugInInfo PLUG_IN_INFO{nullptr, nullptr, chromalog::query, chromalog::run};
}

MAIN()
