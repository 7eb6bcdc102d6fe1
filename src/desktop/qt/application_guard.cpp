#include "desktop/qt/application_guard.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string_view>

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

/// Asks the X library itself: a socket alone would not tell whether the server lets us in.
bool xServerAnswers() {
    if (environment("DISPLAY").empty()) return false;
    void* xcb = dlopen("libxcb.so.1", RTLD_NOW | RTLD_LOCAL);
    if (!xcb) return false;
    using Connect = void* (*)(const char*, int*);
    using HasError = int (*)(void*);
    using Disconnect = void (*)(void*);
    const auto connect = reinterpret_cast<Connect>(dlsym(xcb, "xcb_connect"));
    const auto hasError = reinterpret_cast<HasError>(dlsym(xcb, "xcb_connection_has_error"));
    const auto disconnect = reinterpret_cast<Disconnect>(dlsym(xcb, "xcb_disconnect"));
    bool answers = false;
    if (connect && hasError && disconnect) {
        void* connection = connect(nullptr, nullptr); // never null: an error is held in the connection
        answers = hasError(connection) == 0;
        disconnect(connection);
    }
    dlclose(xcb);
    return answers;
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

/// The toolkit's remarks on platforms that lack a feature are no news to anyone; everything else goes its
/// way.
void withoutNoise(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (text.startsWith("This plugin does not support ") || text.contains("XDG_RUNTIME_DIR")) return;
    if (earlierHandler)
        earlierHandler(type, context, text);
    else
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

} // namespace

bool displayAvailable() {
    if (QCoreApplication::instance())
        return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
#if defined(__linux__)
    const std::string_view platform = environment("QT_QPA_PLATFORM");
    if (platform.starts_with("wayland")) return waylandAnswers();
    if (platform.starts_with("xcb") || platform.empty()) return xServerAnswers();
#endif
    return true;
}

ApplicationGuard::ApplicationGuard() : locale_(std::setlocale(LC_ALL, nullptr)) {
    if (QCoreApplication::instance()) return;
    static int argc = 1; // the application keeps a reference
    static char name[] = "chromalog";
    static char* argv[] = {name, nullptr};
    earlierHandler = qInstallMessageHandler(withoutNoise);
    const std::string numeric = std::setlocale(LC_NUMERIC, nullptr);
    own_ = std::make_unique<QApplication>(argc, argv);
    own_->setQuitOnLastWindowClosed(false);
    std::setlocale(LC_NUMERIC, numeric.c_str());
}

ApplicationGuard::~ApplicationGuard() {
    if (!own_) return;
    own_.reset();
    qInstallMessageHandler(earlierHandler);
    std::setlocale(LC_ALL, locale_.c_str());
}

} // namespace chromalog
