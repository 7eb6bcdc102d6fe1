#pragma once

#include "abi/picker_record.h"

#include <span>

namespace chromalog::plugin_check {

/// A pick's record, altered: what is missing, or whose functions answer otherwise.
struct Alteration {
    const char* name;
    void (*alter)(PickerRecord&);
};

/// Null pointers, in the record and in the tables that it points to.
std::span<const Alteration> missingCallbacks();
/// Functions that fail, answer wild values or give empty suites, and wild fields.
std::span<const Alteration> hostileAnswers();

} // namespace chromalog::plugin_check
