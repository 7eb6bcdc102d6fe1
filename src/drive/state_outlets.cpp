#include "drive/state_outlets.h"

#include "drive/json_values.h"
#include "drive/locate.h"
#include "qt/driven_dialog.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSlider>

namespace chromalog::drive {
namespace {

/// The class that the dialog gave the control, or the view's; else the widget's own.
QString classOf(const QWidget& widget) {
    if (const QVariant name = widget.property(kClassName); name.isValid()) return name.toString();
    return QString::fromLatin1(widget.metaObject()->className()).section("::", -1);
}

/// Four components; null where the control has no colour.
QJsonValue colourOf(const QVariant& rgba) {
    const QVariantList components = rgba.toList();
    return components.isEmpty() ? QJsonValue(QJsonValue::Null) : QJsonArray::fromVariantList(components);
}

QJsonArray frameInWindow(const QWidget& widget) {
    const QPoint at = widget.mapTo(widget.window(), QPoint());
    return {at.x(), at.y(), widget.width(), widget.height()};
}

void addButton(QJsonObject& state, const QAbstractButton& button) {
    state["title"] = button.text().remove('&');
    if (button.isCheckable()) state["value"] = button.isChecked() ? 1 : 0;
    if (const QVariant tint = button.property("rgba"); tint.isValid()) state["background"] = colourOf(tint);
}

void addRange(QJsonObject& state, double value, double minimum, double maximum) {
    state["value"] = value;
    state["min"] = minimum;
    state["max"] = maximum;
}

double number(const QWidget& widget, const char* property) {
    return widget.property(property).toDouble();
}

void addWindow(QJsonObject& state, const QDialog& window) {
    state["title"] = window.windowTitle();
    state["key"] = window.isActiveWindow();
    state["floating"] = window.windowType() == Qt::Tool;
}

void addRows(QJsonObject& state, const QListWidget& list) {
    QJsonArray rows;
    for (int row = 0; row < list.count(); ++row)
        rows.append(list.item(row)->text());
    state["rows"] = rows;
    state["value"] = list.currentRow();
}

bool addMatrix(QJsonObject& state, const QWidget& widget) {
    const auto rows = widget.findChildren<QRadioButton*>();
    for (qsizetype row = 0; row < rows.size(); ++row) {
        if (!rows[row]->isChecked()) continue;
        state["value"] = row;
        state["title"] = rows[row]->text().remove('&');
    }
    return !rows.isEmpty();
}

void addContents(QJsonObject& state, const QWidget& widget) {
    if (const auto* field = qobject_cast<const QLineEdit*>(&widget))
        state["text"] = field->text();
    else if (const auto* label = qobject_cast<const QLabel*>(&widget))
        state["text"] = label->text();
    else if (const auto* text = qobject_cast<const QPlainTextEdit*>(&widget))
        state["text"] = text->toPlainText();
    else if (const auto* list = qobject_cast<const QListWidget*>(&widget))
        addRows(state, *list);
    else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        addButton(state, *button);
    else if (const auto* slider = qobject_cast<const QSlider*>(&widget))
        addRange(state, slider->value(), slider->minimum(), slider->maximum());
    else if (widget.inherits(kStepperClass))
        addRange(state, number(widget, "value"), number(widget, "minimum"), number(widget, "maximum"));
    else if (widget.property("level").isValid())
        state["value"] = number(widget, "level");
    else if (const QVariant colour = widget.property("rgba"); colour.isValid())
        state["color"] = colourOf(colour);
    else if (const auto* window = qobject_cast<const QDialog*>(&widget);
             window && window->inherits(kDialogClass))
        addWindow(state, *window);
    else
        addMatrix(state, widget);
}

QJsonObject outletState(const QWidget& widget) {
    QJsonObject state{{"class", classOf(widget)},      {"enabled", widget.isEnabled()},
                      {"visible", widget.isVisible()}, {"focused", widget.hasFocus()},
                      {"hidden", widget.isHidden()},   {"frame", frameInWindow(widget)}};
    if (widget.property("dimmed").toBool()) state["dimmed"] = true;
    if (const QString fault = widget.property("fault").toString(); !fault.isEmpty()) state["fault"] = fault;
    addContents(state, widget);
    return state;
}

/// A context menu is a window of its own, but its form's outlet.
bool belongsTo(const QDialog& form, const QWidget& widget) {
    return widget.window() == &form || qobject_cast<const QMenu*>(&widget);
}

QString outletName(const QWidget& widget) {
    const QString name = widget.objectName();
    return name.startsWith('_') ? name.mid(1) : name;
}

} // namespace

QJsonObject outletsState() {
    QJsonObject outlets;
    for (QDialog* form : forms()) {
        outlets[outletName(*form)] = outletState(*form);
        for (const QWidget* widget : form->findChildren<QWidget*>())
            if (belongsTo(*form, *widget) && !isDecoration(widget->objectName()))
                outlets[outletName(*widget)] = outletState(*widget);
    }
    return outlets;
}

} // namespace chromalog::drive
