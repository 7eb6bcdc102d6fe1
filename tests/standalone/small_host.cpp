// A host in one file: small_host MODULE COLOUR [SCRIPT]. The page docs/hosts.md shows it whole.
#include "standalone/picker.h"

#include <iostream>
#include <stdexcept>

using namespace chromalog::standalone;

namespace {

int pickOnce(Picker& picker, const HostColour& offered) {
    const Picked picked = picker.pick(offered);
    switch (picked.end) {
    case Picked::End::changed:
        std::cout << formatColour(rgbOf(picked.colour, Scale::sixteen, picker.converter()), Format::hex)
                  << '\n';
        return 0;
    case Picked::End::asOffered:
        std::cout << "as offered\n";
        return 0;
    case Picked::End::noDialog:
        std::cerr << "there is no display to show the dialog on\n";
        return 1;
    case Picked::End::noMemory:
    case Picked::End::pluginError:
        std::cerr << picked.problem << '\n';
        return 1;
    case Picked::End::ended: // a script that cannot be played
        break;
    }
    return picked.exitCode;
}

} // namespace

int main(int count, char** words) try {
    const auto offered = count > 2 ? readColour(words[2], Scale::sixteen) : std::nullopt;
    if (!offered) throw std::runtime_error("small_host MODULE COLOUR [SCRIPT]");
    PickerSettings settings;
    settings.plugin = words[1];
    if (count > 3) settings.options["drive"] = words[3]; // for tests and pictures: no person is asked
    Picker picker(settings);
    const int exitCode = pickOnce(picker, *offered);
    const auto misuses = picker.end();
    for (const std::string& misuse : misuses)
        std::cerr << "misuse of the host: " << misuse << '\n';
    return misuses.empty() ? exitCode : 1;
} catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
}
