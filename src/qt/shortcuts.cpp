#include "qt/shortcuts.h"

#include "base/translated.h"
#include "qt/mishap.h"
#include "qt/shortcut_sheet.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QShortcut>
#include <QToolTip>

namespace chromalog {

namespace {

QString nameOf(const Shortcut& shortcut, int list) {
    return QString(shortcut.control).replace("%1", QString::number(list));
}

/// Whether the keys are those of a control of that name, of either list.
bool areOf(const Shortcut& shortcut, const QString& name) {
    const QLatin1String control(shortcut.control);
    if (!control.endsWith(QLatin1String("%1"))) return name == control;
    return name.size() == control.size() - 1 && name.startsWith(control.chopped(2)) &&
           (name.back() == '1' || name.back() == '2');
}

QString shown(const QKeySequence& keys) {
    return keys.toString(QKeySequence::NativeText);
}

/// A panel shows none of the dialog's lists: what is done to one is not seen there.
bool isOfAList(const Shortcut& shortcut) {
    return QString(shortcut.control).contains("%1") || !shortcut.presses;
}

/// The button of the window itself, not of the panels that it carries, that the keys press.
QAbstractButton* buttonOf(const QWidget& window, const QKeySequence& keys) {
    for (auto* button : window.findChildren<QAbstractButton*>())
        if (button->shortcut() == keys && button->window() == &window && button->isVisible() &&
            button->isEnabled())
            return button;
    return nullptr;
}

} // namespace

const QList<Shortcut>& shortcuts() {
    static const QList<Shortcut> all = {
        {translatable("Ctrl+Z"), "undoButton", translatable("Undo the last change of the lists")},
        {translatable("Ctrl+Shift+Z"), "redoButton", translatable("Redo what was undone")},
        {translatable("Ctrl+Y"), "redoButton", translatable("Redo what was undone")},
        {translatable("Ctrl+O"), "loadSwatch%1", translatable("Load a swatch file into the list used last")},
        {translatable("Ctrl+S"), "saveSwatch%1", translatable("Save the list used last")},
        {translatable("Ctrl+F"), "findColor%1", translatable("Find in the list used last"), false},
        {translatable("Ctrl+I"), "pickFromScreen", translatable("Pick a color from the screen")},
        {translatable("Alt+1"), "swatch1", translatable("Go to list 1"), false},
        {translatable("Alt+2"), "swatch2", translatable("Go to list 2"), false},
    };
    return all;
}

Shortcuts::Shortcuts(QWidget& window) : QObject(&window), window_(window) {
    for (const Shortcut& shortcut : shortcuts())
        if (control(shortcut, list_)) add(shortcut);
    for (auto* button : window.findChildren<QAbstractButton*>())
        button->installEventFilter(this);
    if (!window.findChild<QShortcut*>()) return; // a panel beside the dialog, whose keys work there too
    addSheet();
    for (QWidget* widget : window.findChildren<QWidget*>())
        if (!keysOf(*widget).isEmpty()) widget->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { guarded([&] { noteList(now); }); });
}

QWidget* Shortcuts::control(const Shortcut& shortcut, int list) const {
    return window_.findChild<QWidget*>(nameOf(shortcut, list));
}

void Shortcuts::add(const Shortcut& shortcut) {
    const QKeySequence keys(shortcut.keys);
    // A form may give a button the same key: of two, neither would work.
    for (auto* button : window_.findChildren<QAbstractButton*>())
        if (button->shortcut() == keys) button->setShortcut({});
    auto* key = new QShortcut(keys, &window_);
    key->installEventFilter(this);
    connect(key, &QShortcut::activated, this, [this, shortcut] {
        const QWidget* active = QApplication::activeWindow(); // none where another program's is
        const bool here = !active || active == &window_ || !isOfAList(shortcut);
        if (here) guarded([&] { run(shortcut); });
    });
}

void Shortcuts::addSheet() {
    const auto show = [this] { guarded([this] { showShortcutSheet(window_); }); };
    connect(new QShortcut(QKeySequence(Qt::Key_F1), &window_), &QShortcut::activated, this, show);
    auto* item = window_.findChild<QAction*>("itemShortcuts");
    if (!item) return;
    item->setText(item->text() + '\t' + shown(QKeySequence(Qt::Key_F1)));
    connect(item, &QAction::triggered, this, show);
}

void Shortcuts::run(const Shortcut& shortcut) {
    QWidget* target = control(shortcut, list_);
    if (!target) return;
    if (auto* button = qobject_cast<QAbstractButton*>(target); button && shortcut.presses)
        return button->click();
    target->setFocus(Qt::ShortcutFocusReason);
    if (auto* field = qobject_cast<QLineEdit*>(target)) field->selectAll();
}

void Shortcuts::noteList(const QWidget* focus) {
    for (; focus; focus = focus->parentWidget())
        for (const int list : {1, 2})
            if (focus->objectName() == QString("boxList%1").arg(list) && focus->window() == &window_)
                list_ = list;
}

QString Shortcuts::keysOf(const QWidget& widget) const {
    QStringList keys;
    for (const Shortcut& shortcut : shortcuts())
        if (areOf(shortcut, widget.objectName())) keys.append(shown(QKeySequence(shortcut.keys)));
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    if (button && !button->shortcut().isEmpty()) keys.append(shown(button->shortcut()));
    return keys.join(", ");
}

/// The toolkit takes a panel's keys and those of the window that carries it for the same ones, and then gives
/// each owner of a key every second press, to do nothing with.
bool Shortcuts::isElsewhere(QObject& target, const QShortcutEvent& event) const {
    const QWidget* active = QApplication::activeWindow();
    QAbstractButton* own = active ? buttonOf(*active, event.key()) : nullptr;
    if (!own || (own == &target && !event.isAmbiguous())) return false;
    own->animateClick();
    return true;
}

bool Shortcuts::nameKeys(QWidget& widget, QPoint at) const {
    const QString keys = widget.toolTip().isEmpty() ? QString() : keysOf(widget);
    if (keys.isEmpty()) return false;
    QToolTip::showText(at, QString("%1 (%2)").arg(widget.toolTip(), keys), &widget);
    return true;
}

bool Shortcuts::eventFilter(QObject* object, QEvent* event) try {
    if (event->type() == QEvent::Shortcut)
        return isElsewhere(*object, *static_cast<const QShortcutEvent*>(event));
    auto* widget = qobject_cast<QWidget*>(object);
    return event->type() == QEvent::ToolTip && widget &&
           nameKeys(*widget, static_cast<QHelpEvent*>(event)->globalPos());
} catch (...) {
    mishap();
    return false;
}

} // namespace chromalog
