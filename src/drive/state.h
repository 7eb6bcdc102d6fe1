#pragma once

#include "abi/standalone_suite.h"

#include <QJsonObject>

#include <string>

namespace chromalog {
class DrivenDialog;
}

namespace chromalog::drive {

/// Everything that the dialog shows and holds, as docs/driving.md lays it out. `standalone` may be null: then
/// the host's calls and misuse are left out.
QJsonObject dialogState(const DrivenDialog&, const StandaloneSuite* standalone);

/// Writes it; throws CommandError where the file cannot be written.
void writeState(const QJsonObject&, const std::string& path);

} // namespace chromalog::drive
