// The user-interface hooks: this host has no window, so that there is little to hook into.
#include "standalone/callbacks.h"
#include "standalone/host.h"

#include <array>
#include <chrono>
#include <string>

namespace chromalog::standalone {

namespace {

void counted(const char* callback) {
    Host::current().ledger.count(callback);
    Host::current().suites.requireAcquired(kPSUIHooksSuite, callback);
}

/// True where the pointer may be used; a null one is named.
bool given(const void* pointer, const char* callback, const char* what) {
    if (!pointer) Host::current().ledger.misuse(callback, std::string("null ") + what);
    return pointer != nullptr;
}

void processEvent(void*) {
    counted("processEvent");
}
std::int16_t displayPixels(const void* source, const void* rect, std::int32_t, std::int32_t, void*) {
    counted("displayPixels");
    const bool pixels = given(source, "displayPixels", "pixels");
    const bool place = given(rect, "displayPixels", "rectangle");
    return pixels && place ? errPlugInHostInsufficient : hostParamErr;
}
void progressBar(std::int32_t, std::int32_t) {
    counted("progressBar");
}
std::uint8_t testAbort() {
    counted("testAbort");
    return 0;
}
std::intptr_t mainAppWindow() {
    counted("MainAppWindow");
    return 0;
}
std::int32_t setCursor(const char* name) {
    counted("SetCursor");
    return given(name, "SetCursor", "name") ? hostNoErr : hostParamErr;
}
std::uint32_t tickCount() {
    counted("TickCount");
    using Ticks = std::chrono::duration<std::int64_t, std::ratio<1, 60>>;
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(std::chrono::duration_cast<Ticks>(now).count());
}
std::int32_t getPluginName(void*, ASZString* name) {
    counted("GetPluginName");
    return given(name, "GetPluginName", "pointer to a name") ? errPlugInHostInsufficient : hostParamErr;
}
std::int32_t setPluginMenuEntry(void*, ASZString name, std::uint32_t) {
    counted("SetPluginMenuEntry");
    return given(name, "SetPluginMenuEntry", "name") ? errPlugInHostInsufficient : hostParamErr;
}
std::int32_t getLocalizedFileName(ASZString name, ASZString* localized) {
    counted("GetLocalizedFileName");
    const bool asked = given(name, "GetLocalizedFileName", "name");
    const bool answered = given(localized, "GetLocalizedFileName", "pointer to a name");
    return asked && answered ? errPlugInHostInsufficient : hostParamErr;
}
std::intptr_t mainAppRootWindow() {
    counted("MainAppRootWindow");
    return 0;
}

constexpr PSUIHooksSuite upToVersion(int version) {
    return {processEvent,
            displayPixels,
            progressBar,
            testAbort,
            mainAppWindow,
            setCursor,
            tickCount,
            getPluginName,
            version >= 2 ? setPluginMenuEntry : nullptr,
            version >= 3 ? getLocalizedFileName : nullptr,
            version >= 4 ? mainAppRootWindow : nullptr};
}

} // namespace

const PSUIHooksSuite* uiHooksSuite(int version) {
    static constexpr std::array<PSUIHooksSuite, 4> suites{upToVersion(1), upToVersion(2), upToVersion(3),
                                                          upToVersion(4)};
    return &suites[static_cast<std::size_t>(version) - 1];
}

} // namespace chromalog::standalone
