#pragma once

class QLineEdit;

namespace chromalog {

/// Of a field in a form: its property names the highest of its whole numbers from 0 on, and lets it step.
inline constexpr const char* kMost = "most";

/// Up and Down change the field's number by 1, with Shift by 10; so does the pointer's wheel, where the field
/// has the focus. Every step is an edit by a person, and stays within 0 and the highest number.
void stepByKeys(QLineEdit&);

} // namespace chromalog
