#pragma once

#include "abi/picker_record.h"
#include "standalone/guarded_block.h"
#include "standalone/host.h"
#include "standalone/host_colour.h"

#include <deque>
#include <string>

namespace chromalog::standalone {

/// One host run with one plug-in: the calls of its entry, each with a fresh record, and the plug-in's slot
/// between them.
class HostRun {
  public:
    HostRun(Host& host, PluginMainProc entry) : host_(host), entry_(entry) {}
    /// Takes the memory in the slot back, as a host does when it ends. May outlive the plug-in's module,
    /// whose last writes are then seen, once the run has ended.
    ~HostRun();

    struct Answer {
        std::int16_t result; ///< the plug-in's result code
        HostColour colour;   ///< what the record holds after the call
        std::int16_t space;  ///< resultSpace after the call
        std::string error;   ///< the plug-in's own message with errReportString
    };
    Answer pick(const HostColour& offered);
    /// A pick from within a callback, as by a host whose callback leads back to the plug-in.
    Answer pickWithinCall(const HostColour& offered);
    std::int16_t about(); ///< the plug-in's result code
    void end(); ///< no further call, and the plug-in puts away what it kept; before its module is unloaded

    std::intptr_t slot() const { return slot_; }

  private:
    struct Call;
    static Call& newCall(GuardedBlock& block);
    using Enter = void (HostRun::*)(std::int16_t selector, void* record, std::int16_t& result);
    Answer makeCall(const HostColour& offered, Enter);
    void endCall(GuardedBlock& block, const std::string& changed);
    void enter(std::int16_t selector, void* record, std::int16_t& result);
    void enterAgain(std::int16_t selector, void* record, std::int16_t& result);
    void checkNumbers(const std::string& before) const;
    void watchOldRecords();

    Host& host_;
    PluginMainProc entry_;
    std::intptr_t slot_ = 0;
    std::deque<GuardedBlock> oldCalls_; // the last calls' records, filled with rubbish
};

} // namespace chromalog::standalone
