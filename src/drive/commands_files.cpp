// Commands that write files.
#include "drive/commands.h"
#include "drive/locate.h"
#include "drive/pictures.h"
#include "drive/state.h"

namespace chromalog::drive {

void Commands::shot(const Command& c) {
    writePicture(screenPicture(), c.text(0));
}

void Commands::picture(const Command& c) {
    writePicture(ownPicture(dialog_, reachableOutlet(c.text(0))), c.text(1));
}

void Commands::state(const Command& c) {
    writeState(dialogState(dialog_, standalone_), c.text(0));
}

} // namespace chromalog::drive
