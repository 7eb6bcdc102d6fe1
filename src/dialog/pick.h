#pragma once

#include "abi/picker_record.h"
#include "abi/standalone_suite.h"
#include "desktop/desktop.h"
#include "record/global_record.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace chromalog {

class ChromalogControler;

/// Leaves a function with the host that puts away, at the end of its run, what was kept between picks.
using AtEnd = void (*)(void (*putAway)());

/// Where a pick runs: makes the desktop, and is told when the dialog stands.
class Platform {
  public:
    virtual ~Platform() = default;
    /// Before the desktop is made, where the host keeps this module loaded to the end of its run.
    virtual void staysLoaded(AtEnd) {}
    /// The desktop of one pick, or null where no dialog can be shown. `standalone` is null in any other host.
    virtual std::unique_ptr<Desktop> makeDesktop(const StandaloneSuite* standalone) = 0;
    /// The controller is complete, its modal loop starts next. Scripts attach here.
    virtual void dialogReady(Desktop&, ChromalogControler&) {}
    /// Colours from the screen without the dialog; returns when the person is done.
    virtual ScreenColours pickFromScreen() { return {{}, "There is no screen to pick from"}; }
    /// One line of the system's log where no desktop stands, or not the caller's.
    virtual void log(std::string_view) {}
};

struct PickSession; ///< what one pick runs with

/// The plug-in's entry, called by the host on its main thread: selector 0 is the about call, any other a
/// pick. `data` is the host's slot for the plug-in's handle. On return *result is -108 where the global
/// record could not be had, 0 after a pick; the about call and a pick without a display leave it alone.
/// Nothing thrown leaves it: memory that runs out is -108 too, anything else ends the pick as Cancel does;
/// the host's components then are as it offered them. A call while a pick runs returns at once and changes
/// nothing.
void runPluginMain(std::int16_t selector, void* record, std::intptr_t* data, std::int16_t* result, Platform&);

void InitGlobals(GlobalRecord* block); ///< stores the pointer, writes nothing else
std::int64_t DoPick(PickSession&);     ///< the modal code
std::int64_t DoUI(PickSession&);
void SetDefaultValues(); ///< does nothing: kept in the sequence
std::int16_t initializeCocoaChromalog(GlobalRecord*, PickSession&);
std::int64_t orderWindowFrontChromalog(PickSession&);

} // namespace chromalog
