#include "qt/application_guard.h"

#include "qt/host_process.h"
#include "qt/log_ring.h"
#include "qt/mishap.h"
#include "qt/returned_colour.h"
#include "qt/screen_devices.h"

#include <QClipboard>
#include <QPixmapCache>
#include <QWidget>

#include <algorithm>
#include <chrono>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <utility>

#if defined(__linux__)
#include <dlfcn.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#endif

namespace chromalog {

namespace {

std::string_view environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

#if defined(__linux__)

namespace fs = std::filesystem;

/// The X library, loaded for one question only: the toolkit's platform plug-in links it, this module does
/// not.
struct XLibrary {
    void* handle = dlopen("libxcb.so.1", RTLD_NOW | RTLD_LOCAL);
    ~XLibrary() {
        if (handle) dlclose(handle);
    }
    template <typename Function> Function* find(const char* name) const {
        return handle ? reinterpret_cast<Function*>(dlsym(handle, name)) : nullptr;
    }
};

/// Whether the X server of the application that stands has gone: the toolkit ends the process as soon as it
/// looks for events.
bool serverHasGone() {
    if (QGuiApplication::platformName() != "xcb") return false; // others claim the interface too, and crash
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11) return false;
    const XLibrary library;
    auto* hasError = library.find<int(void*)>("xcb_connection_has_error");
    return hasError && hasError(x11->connection()) != 0;
}

/// Whether a folder holds FILE.so or FILE-ANYTHING.so. The toolkit's own filters would start its regular
/// expressions for this alone.
bool holdsPlugIn(const std::string& folder, const std::string& file) {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (name == file + ".so" || (name.starts_with(file + '-') && name.ends_with(".so"))) return true;
    }
    return false;
}

/// Whether the toolkit has the plug-in of this kind ("platforms", "platformthemes"): asked for a platform
/// that it lacks, it would abort.
bool isInstalled(const QString& kind, const QString& name) {
    QStringList folders;
    for (const QString& folder : QCoreApplication::libraryPaths())
        folders.append(folder + '/' + kind);
    if (const QString own = qEnvironmentVariable("QT_QPA_PLATFORM_PLUGIN_PATH"); !own.isEmpty())
        folders.append({own, own + '/' + kind});
    return std::ranges::any_of(folders, [&name](const QString& folder) {
        return holdsPlugIn(folder.toStdString(), "libq" + name.toStdString());
    });
}

/// The theme of another toolkit, which ends the process where it finds no display, whatever platform this one
/// runs on.
bool themeEndsWithoutDisplay() {
    const QString theme = qEnvironmentVariable("QT_QPA_PLATFORMTHEME").toLower();
    return theme == "gtk3" && isInstalled("platformthemes", theme);
}

bool waylandAnswers() {
    std::string path(environment("WAYLAND_DISPLAY"));
    if (path.empty()) return false;
    if (path.front() != '/') path = std::string(environment("XDG_RUNTIME_DIR")) + "/" + path;
    sockaddr_un address{};
    if (path.size() >= sizeof address.sun_path) return false;
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, path.size());
    const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0) return false;
    const bool answers = ::connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    close(fd);
    return answers;
}

#endif

QtMessageHandler earlierHandler = nullptr;

/// The toolkit's remarks on platforms that lack a feature, and on a runtime folder that nothing here uses,
/// are no news to anyone; everything else goes its way.
void withoutNoise(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (text.startsWith("This plugin does not support ") || text.startsWith("QStandardPaths: ")) return;
    if (earlierHandler)
        earlierHandler(type, context, text);
    else
        sayOnStandardError(text.toLocal8Bit().constData());
}

/// Also ends what the toolkit itself throws where there is no memory. Pictures of controls are not kept:
/// their names hold each window's palette, which the next window does not have, and stay until the process
/// ends.
class Application : public QApplication {
  public:
    Application(int& argc, char** argv) : QApplication(argc, argv) { QPixmapCache::setCacheLimit(0); }
    ~Application() override { QPixmapCache::setCacheLimit(picturesBefore_); }

    bool notify(QObject* receiver, QEvent* event) override try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        mishap();
        return false;
    }

  private:
    const int picturesBefore_ = QPixmapCache::cacheLimit();
};

} // namespace

#if defined(__linux__)

/// A connection to the X server. The library itself asks: a socket alone would not tell whether the server
/// lets us in.
struct DisplayProbe::XConnection {
    XLibrary library;
    void* connection = nullptr;

    /// A server that starts anew because the pick before was its last client turns away who comes meanwhile.
    XConnection() {
        constexpr int tries = 5;
        if (environment("DISPLAY").empty()) return;
        for (int i = 0; i < tries && !stands(); ++i) {
            if (i > 0) std::this_thread::sleep_for(std::chrono::milliseconds(50));
            open();
        }
    }
    ~XConnection() { close(); }
    void open() {
        close();
        if (auto* connect = library.find<void*(const char*, int*)>("xcb_connect"))
            connection = connect(nullptr, nullptr);
    }
    void close() {
        auto* disconnect = library.find<void(void*)>("xcb_disconnect");
        if (connection && disconnect) disconnect(connection);
        connection = nullptr;
    }
    /// A failed connection is no null pointer either: it holds its error.
    bool stands() const {
        auto* hasError = library.find<int(void*)>("xcb_connection_has_error");
        return connection && hasError && hasError(connection) == 0;
    }
};

DisplayProbe::DisplayProbe() {
    if (QCoreApplication::instance()) {
        available_ = qobject_cast<QApplication*>(QCoreApplication::instance()) && !serverHasGone();
        return;
    }
    QString platforms = qEnvironmentVariable("QT_QPA_PLATFORM");
    if (platforms.isEmpty()) platforms = "xcb;wayland"; // what the toolkit tries by itself
    for (const QString& platform : platforms.split(';', Qt::SkipEmptyParts)) {
        const QString name = platform.section(':', 0, 0).toLower();
        if (!isInstalled("platforms", name)) continue;
        const bool windows = name == "xcb" || name.startsWith("wayland");
        available_ = windows ? windowSystemAnswers(name) : hasScreenDevice(platform);
        if (available_ || !windows) break; // the toolkit goes on to the next only without a window system
    }
    if (available_ && themeEndsWithoutDisplay())
        available_ = windowSystemAnswers("xcb") || windowSystemAnswers("wayland");
}

bool DisplayProbe::windowSystemAnswers(const QString& platform) {
    if (platform != "xcb") return waylandAnswers();
    if (!x_) x_ = std::make_unique<XConnection>();
    return x_->stands();
}

#else

struct DisplayProbe::XConnection {};

DisplayProbe::DisplayProbe()
    : available_(!QCoreApplication::instance() || qobject_cast<QApplication*>(QCoreApplication::instance())) {
}

#endif

DisplayProbe::~DisplayProbe() = default;

namespace {

/// The application between two picks, and the locale that it runs in.
struct Kept {
    std::unique_ptr<QApplication> application;
    std::string locale;
};
Kept* kept = nullptr; // not owned: a host that exits without ending its run leaves it to the system

void endKept() {
    if (kept) guarded([] { ReturnedColour::holdToItsEnd(); });
    delete std::exchange(kept, nullptr);
}

std::unique_ptr<QApplication> makeApplication() {
    static int argc = 1; // the application keeps a reference
    static char name[] = "chromalog";
    static char* argv[] = {name, nullptr};
    const std::string numeric = std::setlocale(LC_NUMERIC, nullptr);
    const char* const launch = "DESKTOP_STARTUP_ID"; // the toolkit removes it
    const std::string launched(environment(launch));
    standAsideInHost();
    auto application = std::make_unique<Application>(argc, argv);
    application->setQuitOnLastWindowClosed(false);
    QGuiApplication::setDesktopFileName("chromalog"); // by it desktops find the entry, and its icon
    std::setlocale(LC_NUMERIC, numeric.c_str());
    if (!launched.empty()) setenv(launch, launched.c_str(), 1);
    return application;
}

/// Takes back what others see of the application. False where they may still ask this process for the
/// clipboard: its contents are handed over only as the application ends. The colour that OK returned is held
/// longer, by the kept application.
bool leavesTheDesktop() {
    QClipboard& clipboard = *QGuiApplication::clipboard();
    if (clipboard.ownsClipboard() && !ReturnedColour::isHeld()) return false;
    if (clipboard.ownsSelection()) clipboard.clear(QClipboard::Selection);
    for (QWidget* window : QApplication::topLevelWidgets())
        window->hide();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QGuiApplication::sync();
    return true;
}

} // namespace

ApplicationGuard::ApplicationGuard(void (*atEnd)(void (*putAway)()))
    : locale_(std::setlocale(LC_ALL, nullptr)), keep_(atEnd != nullptr) {
    if (QCoreApplication::instance() && !kept) return;
    if (atEnd) atEnd(endKept);
    earlierHandler = qInstallMessageHandler(withoutNoise);
    if (!kept) {
        own_ = makeApplication();
        return;
    }
    own_ = std::move(kept->application);
    std::setlocale(LC_ALL, kept->locale.c_str());
    delete std::exchange(kept, nullptr);
}

ApplicationGuard::~ApplicationGuard() {
    if (!own_) return;
    guarded([this] {
        if (!keep_ || !leavesTheDesktop()) return;
        kept = std::make_unique<Kept>(Kept{nullptr, std::setlocale(LC_ALL, nullptr)}).release();
        kept->application = std::move(own_);
    });
    own_.reset();
    qInstallMessageHandler(earlierHandler);
    std::setlocale(LC_ALL, locale_.c_str());
}

} // namespace chromalog
