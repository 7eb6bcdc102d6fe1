#include "standalone/command_line.h"
#include "standalone/run_picks.h"

int main(int argc, char** argv) {
    using namespace chromalog::standalone;
    int exitCode = 0;
    const auto line = parseCommandLine(argc, argv, exitCode);
    return line ? runProgram(*line) : exitCode;
}
