#pragma once

#include <QString>

namespace chromalog {

/// Captions, layouts, spacers, groups, boxes and the toolkit's own children stand in a form for looks alone.
bool isDecoration(const QString& objectName);

/// The property of a widget that names the dialog's own class of its control, where it has one.
inline constexpr const char* kClassName = "className";

} // namespace chromalog
