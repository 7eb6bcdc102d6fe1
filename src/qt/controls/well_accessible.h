#pragma once

class QAccessibleInterface;
class QObject;
class QString;

namespace chromalog {

/// For the toolkit's list of factories: a colour well is a colour chooser whose value is its colour in words.
QAccessibleInterface* makeWellAccessible(const QString& key, QObject*);

} // namespace chromalog
