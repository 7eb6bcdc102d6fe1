#pragma once

#include "qt/driven_dialog.h"
#include "qt/form_reading.h"

namespace chromalog {

/// What plays scripts, opened where the stand-alone host was asked for a script, a screenshot, accept or
/// cancel: a module of its own beside this one, which stays loaded to the end of the process. Null where the
/// host was asked for none of them. Where the module is missing the host is told to end with 2, and
/// std::runtime_error says why.
std::unique_ptr<Driven> openDrive(DrivenDialog&, const StandaloneSuite&);

/// Reads an interface file by the same module, opened for it; std::runtime_error where the module is missing.
std::unique_ptr<QWidget> readFormFile(const QString& path, MakeWidget, std::vector<std::string>& problems);

} // namespace chromalog
