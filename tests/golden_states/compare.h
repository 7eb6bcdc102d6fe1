#pragma once

#include "golden_states/record.h"

namespace chromalog::golden {

/// What is compared: everything, or what stays the same however the dialog is laid out, or in whatever
/// language it speaks.
enum class Extent { everything, withoutLayout, withoutTexts };

/// Every difference in a line of its own: which run, which state, which key, what it was and what it is.
/// States may gain keys, in objects at any depth, and lines of their log; there may be more states and
/// more runs. All else must be equal: a file that a run leaves besides those that it left is a difference.
std::vector<std::string> differences(const Record& stored, const Record& now, Extent);

} // namespace chromalog::golden
