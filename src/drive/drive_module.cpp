// The two symbols that the plug-in looks for in this module.
#include "drive/attach_drive.h"
#include "drive/form_file.h"

extern "C" __attribute__((visibility("default"))) chromalog::Driven*
chromalogDrive(chromalog::DrivenDialog* dialog, const StandaloneSuite* suite,
               std::unique_ptr<chromalog::Driven>* kept) {
    return chromalog::attachDrive(*dialog, *suite, *kept).release();
}

extern "C" __attribute__((visibility("default"))) std::unique_ptr<QWidget>
chromalogReadForm(const QString& path, chromalog::MakeWidget makeOwn, std::vector<std::string>& problems) {
    return chromalog::readFormFile(path, makeOwn, problems);
}
