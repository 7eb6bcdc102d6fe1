#include "standalone/command_line.h"
#include "standalone/run_picks.h"
#include "standalone/standard_streams.h"

int main(int argc, char** argv) {
    using namespace chromalog::standalone;
    holdStandardStreams();
    int exitCode = 0;
    const auto line = parseCommandLine(argc, argv, exitCode);
    if (!line) return exitCode;
    return line->recover ? runRecover(*line->recover) : runProgram(*line);
}
