// The one symbol that the plug-in looks for in this module.
#include "drive/attach_drive.h"

extern "C" __attribute__((visibility("default"))) chromalog::Driven*
chromalogDrive(chromalog::DrivenDialog* dialog, const StandaloneSuite* suite,
               std::unique_ptr<chromalog::Driven>* kept) {
    return chromalog::attachDrive(*dialog, *suite, *kept).release();
}
