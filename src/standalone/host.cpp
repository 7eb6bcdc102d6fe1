#include "standalone/host.h"

#include "standalone/callbacks.h"

#include <cassert>
#include <utility>

namespace chromalog::standalone {

namespace {
Host* currentHost = nullptr;
}

Host::Host(std::unique_ptr<ColourConverter> converter) : colours(ledger, std::move(converter)) {
    assert(!currentHost);
    currentHost = this;
    suites.offer(kSPBasicSuite, kSPBasicSuiteVersion, basicSuite());
    suites.offer(kPSBufferSuite, kPSBufferSuiteVersion1, bufferSuite1());
    suites.offer(kPSBufferSuite, kPSBufferSuiteVersion2, bufferSuite2());
    for (int version = kPSUIHooksSuiteVersion1; version <= kPSUIHooksSuiteVersion4; ++version)
        suites.offer(kPSUIHooksSuite, version, uiHooksSuite(version));
    for (const int version : {kStandaloneSuiteVersion, kStandaloneSuiteVersion2, kStandaloneSuiteVersion3})
        suites.offer(kStandaloneSuite, version, standaloneSuite());
}

Host::~Host() {
    currentHost = nullptr;
}

Host& Host::current() {
    return *currentHost;
}

void Host::endCall(std::intptr_t slot) {
    ledger.endCall();
    handles.checkAfterCall(reinterpret_cast<Handle>(slot));
    buffers.checkAfterCall();
    suiteBuffers.checkAfterCall();
    blocks.checkAfterCall();
    suites.checkAfterCall();
}

void Host::endRun() {
    for (void (*const putAway)() : std::exchange(atEnd, {}))
        putAway();
}

} // namespace chromalog::standalone
