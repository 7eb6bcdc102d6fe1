#pragma once

class QAccessibleInterface;
class QObject;
class QString;

namespace chromalog {

// For the toolkit's list of factories: what its own would tell nothing of.

/// A box of the form that has a name is a group of that name.
QAccessibleInterface* makeGroupAccessible(const QString& key, QObject*);

/// A stepper is a spin button with its value.
QAccessibleInterface* makeStepperAccessible(const QString& key, QObject*);

/// A button with a menu says so and opens it.
QAccessibleInterface* makeMenuButtonAccessible(const QString& key, QObject*);

} // namespace chromalog
