#include "qt/forms/form_window.h"

#include "qt/controls/clear_button.h"
#include "qt/controls/number_steps.h"
#include "qt/convert.h"
#include "qt/forms/own_widgets.h"
#include "qt/keyboard_focus.h"
#include "qt/language/translate_form.h"

#include <QLineEdit>

#include <set>

namespace chromalog {
namespace {

void reportDoubles(const QWidget& root, std::vector<std::string>& problems) {
    std::set<QString> seen;
    for (const QWidget* widget : root.findChildren<QWidget*>())
        if (!isDecoration(widget->objectName()) && !seen.insert(widget->objectName()).second)
            problems.push_back("the name " + fromQt(widget->objectName()) + " stands twice");
}

} // namespace

void completeForm(DialogWindow& window) {
    translateForm(window);
    for (QLineEdit* field : window.findChildren<QLineEdit*>()) {
        if (field->property("clearButton").toBool()) addClearButton(*field);
        if (field->property(kMost).isValid()) stepByKeys(*field);
    }
    window.setAttribute(Qt::WA_QuitOnClose, false); // the host decides when its process ends
    if (auto* first = window.findChild<QWidget*>(window.property("initialFocus").toString()))
        first->setFocus();
    new KeyboardFocus(window);
    window.grab(QRect(0, 0, 1, 1)); // lays everything out without showing it
}

std::unique_ptr<DialogWindow> formFromFile(const QString& path, ReadForm read,
                                           std::vector<std::string>& problems) {
    std::unique_ptr<QWidget> root = read(path, &makeOwnWidget, problems);
    std::unique_ptr<DialogWindow> window(qobject_cast<DialogWindow*>(root.get()));
    if (root && !window) problems.push_back(fromQt(path) + ": its root is no dialog");
    if (!window) return nullptr;
    static_cast<void>(root.release()); // the same object
    reportDoubles(*window, problems);
    completeForm(*window);
    return window;
}

} // namespace chromalog
