#pragma once

#include "abi/picker_record.h"
#include "standalone/block_heap.h"
#include "standalone/call_ledger.h"
#include "standalone/colour_services.h"
#include "standalone/handle_heap.h"
#include "standalone/suite_registry.h"

#include <array>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace chromalog::standalone {

/// Everything that a plug-in can reach of this host, for one host run.
/// Callbacks are plain C functions without a context, so that exactly one host lives at a time.
class Host {
  public:
    explicit Host(std::unique_ptr<ColourConverter> converter);
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    static Host& current();

    CallLedger ledger;
    HandleHeap handles{ledger};
    BlockHeap buffers{ledger, "allocateProc", BlockHeap::Use::whileLocked}; ///< of the older buffer callbacks
    BlockHeap suiteBuffers{ledger, "New"};                                  ///< of the buffer suite
    BlockHeap blocks{ledger, "AllocateBlock"};                              ///< of the basic suite
    SuiteRegistry suites{ledger};
    ColourServices colours;

    int version = 16;                 ///< major version that 'vers' reports
    bool offersColourServices = true; ///< false: the record's callback is null
    bool offersProperties = true;
    std::function<void(PickerRecord&)> alterRecord; ///< where given: the last word on a pick's record
    std::map<std::string, std::string> options;     ///< of the command line, for the host's own suite
    std::optional<int> endWith; ///< set by the plug-in: start no further pick, exit with this
    std::vector<std::array<std::uint16_t, 3>> taken; ///< from the screen, by the plug-in: 16-bit RGB
    std::vector<void (*)()> atEnd;                   ///< set by the plug-in, whose functions they are

    void beginCall() { ledger.beginCall(); }
    /// Names everything that the plug-in left behind. `slot` is what it keeps between calls.
    void endCall(std::intptr_t slot);
    /// Has the plug-in put away what it kept between its calls; its module must still be loaded.
    void endRun();
};

} // namespace chromalog::standalone
