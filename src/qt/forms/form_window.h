#pragma once

#include "qt/controls/window_control.h"
#include "qt/form_reading.h"

namespace chromalog {

/// What a form's properties ask for beyond the toolkit's own: a field whose clearButton is true gets a button
/// that empties it, one with a greatest value (`most`) steps by keys, `initialFocus` names the control that
/// has the keyboard first. Lays the window out without showing it.
void completeForm(DialogWindow&);

/// The window of an interface file, laid out but not shown; null where the file is missing or broken.
/// `problems` gets a line for what the toolkit passes over in silence: classes that it does not know, names
/// that stand twice.
std::unique_ptr<DialogWindow> formFromFile(const QString& path, ReadForm, std::vector<std::string>& problems);

} // namespace chromalog
