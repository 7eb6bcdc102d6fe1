#pragma once

#include <QString>
#include <QWidget>

#include <optional>
#include <string_view>

namespace chromalog::drive {

struct KeyStroke {
    Qt::Key key = Qt::Key_unknown;
    Qt::KeyboardModifiers modifiers;
    QString text; ///< what it types, if anything
};

/// A key by name, with modifiers before it: Return, Escape, Shift+Right, Ctrl+A, x. Nothing where there is no
/// such key.
std::optional<KeyStroke> readKey(std::string_view name);

/// Presses and releases a key as the window system would, shortcuts included: the widget with the focus gets
/// it.
void strike(QWidget& window, const KeyStroke&);

/// Types the text a keystroke at a time.
void typeText(QWidget& window, const QString& text);

} // namespace chromalog::drive
