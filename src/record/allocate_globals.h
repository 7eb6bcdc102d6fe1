#pragma once

#include "abi/picker_record.h"
#include "record/global_record.h"

#include <cstdint>

namespace chromalog {

/// Finds the global record of an earlier pick in this host run, or makes a new one in a handle of the host.
/// `data` is the host's slot for that handle (0 before the first pick). On success *result is 0 and the
/// record's pointers to the call are refreshed; `initProc` is called for a new record only, so that the
/// lists, names and flags of an earlier pick stay. Null where the host has no memory or no handle procedures;
/// `data` is then as before.
GlobalRecord* AllocateGlobals(std::int16_t* result, PickerRecord* record, HandleProcs* handleProcs,
                              std::int32_t size, std::intptr_t* data, void (*initProc)(GlobalRecord*));

} // namespace chromalog
