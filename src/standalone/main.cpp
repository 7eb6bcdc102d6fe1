#include "standalone/command_line.h"
#include "standalone/palettes/palette_commands.h"
#include "standalone/run_picks.h"
#include "standalone/standard_streams.h"

int main(int argc, char** argv) {
    using namespace chromalog::standalone;
    holdStandardStreams();
    if (const auto done = runPaletteCommand(argc, argv)) return *done;
    int exitCode = 0;
    const auto line = parseCommandLine(argc, argv, exitCode);
    if (!line) return exitCode;
    return line->recover ? runRecover(*line->recover) : runProgram(*line);
}
