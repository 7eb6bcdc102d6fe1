// write_lists DIRECTORY COUNT: the preferences file of a pick with COUNT swatches in each list, for measuring
// start-up.
#include "made_swatches.h"

#include "files/file_io.h"
#include "prefs/preferences_file.h"
#include "prefs/preferences_store.h"

#include <cstdlib>

using namespace chromalog;

int main(int argc, char** argv) {
    const int count = argc == 3 ? std::atoi(argv[2]) : 0;
    if (count < 1 || count > kListCapacity - 1)
        return std::fputs("write_lists DIRECTORY 1..4999\n", stderr), 2;
    PreferencesStore store(applicationDataDirectory(argv[1]));
    const auto record = recordWith(count, count);
    return store.write(preferencesImage(*record), kPreferencesZeros, Flush::later).error == 0 ? 0 : 1;
}
