#include "qt/host_process.h"

#include "qt/mac/objective_c.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <dlfcn.h>

namespace chromalog {
namespace {

/// The application object of the process, or null: to ask its class for it would make one.
mac::Object runningApplication() {
    const auto* application = static_cast<mac::Object*>(dlsym(RTLD_DEFAULT, "NSApp"));
    if (!application || !*application) return nullptr;
    return mac::send<signed char>(*application, "isRunning") != 0 ? *application : nullptr;
}

/// Contents/PlugIns of the bundle that this module lies in.
QString ownPlugIns() {
    Dl_info own{};
    if (dladdr(reinterpret_cast<const void*>(&standAsideInHost), &own) == 0 || !own.dli_fname) return {};
    return QDir::cleanPath(QFileInfo(QFile::decodeName(own.dli_fname)).absolutePath() + "/../PlugIns");
}

} // namespace

void standAsideInHost() {
    const mac::ReleasePool pool;
    // The toolkit then leaves alone the menu bar, the Dock and the application's delegate; its loops run
    // inside the host's, which it finds running.
    if (runningApplication()) QCoreApplication::setAttribute(Qt::AA_PluginApplication);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    // The toolkit would look inside the host's application, and may find another version of itself there. A
    // bundle without plug-ins of its own uses those of the toolkit that it was built with.
    const QString plugIns = ownPlugIns();
    if (QFileInfo::exists(plugIns + "/platforms")) QCoreApplication::setLibraryPaths({plugIns});
}

/// Hosts tell none here, so it is the main window of the application. The toolkit names a window by its view.
WId hostWindow(std::intptr_t) {
    const mac::ReleasePool pool;
    const mac::Object window = mac::send(runningApplication(), "mainWindow");
    return reinterpret_cast<WId>(mac::send(window, "contentView"));
}

} // namespace chromalog
