#include "plugin/open_drive.h"
#include "qt/qt_platform.h"

#if defined(_WIN32)
#define CHROMALOG_EXPORT __declspec(dllexport)
#else
#define CHROMALOG_EXPORT __attribute__((visibility("default")))
#endif

/// The one symbol that a host looks for. Called on the host's main thread.
extern "C" CHROMALOG_EXPORT void PluginMain(std::int16_t selector, void* record, std::intptr_t* data,
                                            std::int16_t* result) {
    chromalog::QtPlatform platform(chromalog::openDrive, chromalog::readFormFile);
    chromalog::runPluginMain(selector, record, data, result, platform);
}
