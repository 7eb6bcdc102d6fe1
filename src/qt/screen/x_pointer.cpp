#include "qt/screen/x_pointer.h"

#include <QGuiApplication>
#include <QWindow>

#include <cstdlib>
#include <dlfcn.h>
#include <string_view>
#include <xcb/xcb.h>

namespace chromalog {

/// Opened when it is needed: the toolkit's platform plug-in links it, this module does not.
struct XPointer::Library {
    void* handle = dlopen("libxcb.so.1", RTLD_NOW | RTLD_LOCAL);
    xcb_connection_t* server = nullptr;
    decltype(&xcb_query_pointer) queryPointer = nullptr;
    decltype(&xcb_query_pointer_reply) pointer = nullptr;
    decltype(&xcb_warp_pointer) warp = nullptr;
    decltype(&xcb_flush) flush = nullptr;
    decltype(&xcb_query_extension) queryExtension = nullptr;
    decltype(&xcb_query_extension_reply) extension = nullptr;

    Library() {
        const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
        if (!handle || !x11 || QGuiApplication::platformName() != "xcb") return;
        const bool found = find(queryPointer, "xcb_query_pointer") &&
                           find(pointer, "xcb_query_pointer_reply") && find(warp, "xcb_warp_pointer") &&
                           find(flush, "xcb_flush") && find(queryExtension, "xcb_query_extension") &&
                           find(extension, "xcb_query_extension_reply");
        if (found) server = x11->connection();
    }
    ~Library() {
        if (handle) dlclose(handle);
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    template <typename Function> bool find(Function& function, const char* name) const {
        function = reinterpret_cast<Function>(dlsym(handle, name));
        return function != nullptr;
    }
};

namespace {

template <typename Reply> using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

xcb_window_t idOf(const QWindow& window) {
    return static_cast<xcb_window_t>(window.winId());
}

} // namespace

XPointer::XPointer() : library_(std::make_unique<Library>()) {}

XPointer::~XPointer() = default;

std::optional<QPoint> XPointer::place(const QWindow& window) const {
    if (!library_->server) return std::nullopt;
    const auto asked = library_->queryPointer(library_->server, idOf(window));
    const Owned<xcb_query_pointer_reply_t> is(library_->pointer(library_->server, asked, nullptr), std::free);
    if (!is) return std::nullopt;
    return QPoint(is->root_x, is->root_y);
}

void XPointer::moveTo(QPoint to, const QWindow& window) const {
    if (!library_->server) return;
    const auto asked = library_->queryPointer(library_->server, idOf(window));
    const Owned<xcb_query_pointer_reply_t> is(library_->pointer(library_->server, asked, nullptr), std::free);
    if (!is) return;
    library_->warp(library_->server, XCB_NONE, is->root, 0, 0, 0, 0, static_cast<std::int16_t>(to.x()),
                   static_cast<std::int16_t>(to.y()));
    library_->flush(library_->server);
}

bool XPointer::showsOnWayland() const {
    if (!library_->server) return false;
    constexpr std::string_view name = "XWAYLAND";
    const auto asked = library_->queryExtension(library_->server, name.size(), name.data());
    const Owned<xcb_query_extension_reply_t> is(library_->extension(library_->server, asked, nullptr),
                                                std::free);
    return is && is->present;
}

} // namespace chromalog
