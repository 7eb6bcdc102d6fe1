#pragma once

#include "abi/picker_record.h"
#include "base/colour.h"
#include "desktop/desktop.h"

#include <string>

namespace chromalog {

/// The colour that the host offers, as 8-bit RGB. The record is told that RGB comes back.
Colour takeHostColour(PickerRecord&);

/// The answer of a pick, as 16-bit RGB; the fourth component stays as it was.
void returnColour(PickerRecord&, const Colour&);

/// The host's folder of colour books; empty where there is none. One call of the property suite.
std::string hostBooks(const PickerRecord&, const Desktop&);

} // namespace chromalog
