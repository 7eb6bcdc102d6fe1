#include "qt/language/translate_form.h"

#include "base/translated.h"
#include "qt/convert.h"

#include <QAction>
#include <QComboBox>
#include <QRadioButton>

namespace chromalog {
namespace {

/// Properties that a person reads or is told. All others of a form are names. "texts" comes after "text": a
/// control that has both shows one of them.
constexpr const char* kShownProperties[] = {"windowTitle",     "toolTip", "accessibleName", "text",
                                            "title",           "texts",   "terms",          "hint",
                                            "placeholderText", "left",    "right",          "between"};

void translateProperties(QObject& object) {
    for (const char* name : kShownProperties) {
        const QVariant english = object.property(name);
        if (english.typeId() != QMetaType::QString) continue;
        const QString text = toQt(translated(fromQt(english.toString())));
        if (text != english.toString()) object.setProperty(name, text);
    }
}

} // namespace

void translateForm(QWidget& form) {
    if (!spokenLanguage()) return;
    for (auto* button : form.findChildren<QRadioButton*>())
        button->setProperty(kEnglish, button->text());
    for (auto* box : form.findChildren<QComboBox*>())
        for (int i = 0; i < box->count(); ++i)
            box->setItemText(i, toQt(translated(fromQt(box->itemText(i)))));
    translateProperties(form);
    for (QObject* object : form.findChildren<QObject*>())
        translateProperties(*object);
}

} // namespace chromalog
