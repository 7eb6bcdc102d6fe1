// Commands that write files.
#include "desktop/qt/drive/commands.h"
#include "desktop/qt/drive/locate.h"
#include "desktop/qt/drive/pictures.h"
#include "desktop/qt/drive/state.h"

namespace chromalog::drive {

void Commands::shot(const Command& c) {
    writePicture(screenPicture(), c.text(0));
}

void Commands::picture(const Command& c) {
    writePicture(ownPicture(reachableOutlet(c.text(0))), c.text(1));
}

void Commands::state(const Command& c) {
    writeState(dialogState(desktop_, controler_, standalone_), c.text(0));
}

} // namespace chromalog::drive
