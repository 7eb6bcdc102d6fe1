#include "qt/system_sound.h"

#include "qt/mac/objective_c.h"

#include <string>

namespace chromalog {

/// One of those that the system's sound settings offer.
void playSystemSound(std::string_view name) {
    const mac::ReleasePool pool;
    const mac::Object sound =
        mac::send(mac::classNamed("NSSound"), "soundNamed:", mac::textOf(std::string(name).c_str()));
    mac::send<void>(sound, "play");
}

} // namespace chromalog
