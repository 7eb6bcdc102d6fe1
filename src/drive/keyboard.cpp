#include "drive/keyboard.h"

#include <QEvent>
#include <QPointer>
#include <QWindow>

#include <algorithm>

QT_BEGIN_NAMESPACE
// The toolkit's own entry for key presses that a test makes up, the same that its test library uses.
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow*, QEvent::Type, int key, Qt::KeyboardModifiers,
                                    const QString& text = QString(), bool autorep = false, ushort count = 1);
QT_END_NAMESPACE

namespace chromalog::drive {
namespace {

struct NamedKey {
    std::string_view name;
    Qt::Key key;
    const char* text = "";
};

constexpr NamedKey kKeys[] = {
    {"Return", Qt::Key_Return, "\r"},
    {"Enter", Qt::Key_Enter, "\r"},
    {"Escape", Qt::Key_Escape, "\x1b"},
    {"Esc", Qt::Key_Escape, "\x1b"},
    {"Tab", Qt::Key_Tab, "\t"},
    {"Backtab", Qt::Key_Backtab},
    {"Space", Qt::Key_Space, " "},
    {"Backspace", Qt::Key_Backspace, "\b"},
    {"Delete", Qt::Key_Delete, "\x7f"},
    {"Insert", Qt::Key_Insert},
    {"Up", Qt::Key_Up},
    {"Down", Qt::Key_Down},
    {"Left", Qt::Key_Left},
    {"Right", Qt::Key_Right},
    {"Home", Qt::Key_Home},
    {"End", Qt::Key_End},
    {"PageUp", Qt::Key_PageUp},
    {"PageDown", Qt::Key_PageDown},
    {"Menu", Qt::Key_Menu},
    {"F1", Qt::Key_F1},
    {"F2", Qt::Key_F2},
    {"F10", Qt::Key_F10},
};

struct NamedModifier {
    std::string_view prefix;
    Qt::KeyboardModifier modifier;
};

constexpr NamedModifier kModifiers[] = {
    {"Shift+", Qt::ShiftModifier}, {"Ctrl+", Qt::ControlModifier}, {"Alt+", Qt::AltModifier},
    {"Option+", Qt::AltModifier},  {"Meta+", Qt::MetaModifier},
};

Qt::KeyboardModifiers takeModifiers(std::string_view& name) {
    Qt::KeyboardModifiers taken;
    for (bool more = true; more;) {
        more = false;
        for (const auto& [prefix, modifier] : kModifiers) {
            if (!name.starts_with(prefix)) continue;
            name.remove_prefix(prefix.size());
            taken |= modifier;
            more = true;
        }
    }
    return taken;
}

KeyStroke strokeOf(QChar c) {
    KeyStroke stroke;
    stroke.key = static_cast<Qt::Key>(c.toUpper().unicode());
    if (c.isUpper()) stroke.modifiers = Qt::ShiftModifier;
    stroke.text = c;
    return stroke;
}

constexpr Qt::KeyboardModifiers kCommands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

} // namespace

std::optional<KeyStroke> readKey(std::string_view name) {
    const auto modifiers = takeModifiers(name);
    const QString letter = QString::fromUtf8(name.data(), qsizetype(name.size()));
    KeyStroke stroke;
    if (letter.size() == 1) {
        stroke = strokeOf(letter.front());
        if (modifiers & kCommands) stroke.modifiers = {}; // Ctrl+A is the key A, not Ctrl+Shift+A
    } else {
        const auto* const found = std::ranges::find(kKeys, name, &NamedKey::name);
        if (found == std::end(kKeys)) return std::nullopt;
        stroke.key = found->key;
        stroke.text = QString::fromLatin1(found->text);
    }
    stroke.modifiers |= modifiers;
    if (stroke.modifiers & kCommands) stroke.text.clear();
    return stroke;
}

void strike(QWidget& window, const KeyStroke& stroke) {
    const QPointer<QWindow> handle = window.windowHandle();
    if (handle) qt_handleKeyEvent(handle, QEvent::KeyPress, stroke.key, stroke.modifiers, stroke.text);
    if (handle) qt_handleKeyEvent(handle, QEvent::KeyRelease, stroke.key, stroke.modifiers, stroke.text);
}

void typeText(QWidget& window, const QString& text) {
    const QPointer<QWidget> still = &window;
    for (qsizetype at = 0; at < text.size(); ++at) {
        KeyStroke stroke = strokeOf(text[at]);
        if (text[at].isHighSurrogate() && at + 1 < text.size()) stroke.text += text[++at]; // one character
        if (still) strike(*still, stroke);
    }
}

} // namespace chromalog::drive
