#pragma once

#include <QString>

namespace chromalog {

/// Captions, layouts, spacers, groups, boxes and the toolkit's own children stand in a form for looks alone.
bool isDecoration(const QString& objectName);

} // namespace chromalog
