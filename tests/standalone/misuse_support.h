#pragma once

#include "standalone/callbacks.h"
#include "standalone/conversion/closed_converter.h"
#include "standalone/host_run.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace chromalog::standalone::test {

/// What a plug-in does in one pick.
using Body = void (*)(PickerRecord& record, std::intptr_t& slot);

inline Body currentBody = nullptr;
inline void entry(std::int16_t, void* record, std::intptr_t* data, std::int16_t*) {
    currentBody(*static_cast<PickerRecord*>(record), *data);
}

/// What a host names after picks by a plug-in that does `body`.
inline std::vector<std::string> misusesOf(Body body, int picks = 1) {
    Host host(std::make_unique<ClosedConverter>());
    currentBody = body;
    {
        HostRun run(host, entry);
        for (int i = 0; i < picks; ++i)
            run.pick({});
    }
    return {host.ledger.misuses().begin(), host.ledger.misuses().end()};
}

struct Mistake {
    Body body;
    const char* named;
};

} // namespace chromalog::standalone::test
