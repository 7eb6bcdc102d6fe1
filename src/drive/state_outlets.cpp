#include "drive/state_outlets.h"

#include "drive/json_values.h"
#include "drive/locate.h"
#include "qt/controls/color_well_widget.h"
#include "qt/controls/level_indicator_widget.h"
#include "qt/controls/stepper_widget.h"
#include "qt/controls/tinted_button.h"
#include "qt/controls/window_control.h"
#include "qt/form_names.h"
#include "qt/view_widget.h"

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
    if (const auto* shown = qobject_cast<const ViewWidget*>(&widget))
        return shown->view() ? shown->view()->className() : "View";
    return QString::fromLatin1(widget.metaObject()->className()).section("::", -1);
}

QJsonArray frameInWindow(const QWidget& widget) {
    const QPoint at = widget.mapTo(widget.window(), QPoint());
    return {at.x(), at.y(), widget.width(), widget.height()};
}

void addButton(QJsonObject& state, const QAbstractButton& button) {
    state["title"] = button.text().remove('&');
    if (button.isCheckable()) state["value"] = button.isChecked() ? 1 : 0;
    if (const auto* tinted = qobject_cast<const TintedButton*>(&button))
        state["background"] = json(tinted->tint());
}

void addRange(QJsonObject& state, double value, double minimum, double maximum) {
    state["value"] = value;
    state["min"] = minimum;
    state["max"] = maximum;
}

void addWindow(QJsonObject& state, const DialogWindow& window) {
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
    else if (const auto* stepper = qobject_cast<const StepperWidget*>(&widget))
        addRange(state, stepper->value(), stepper->minimum(), stepper->maximum());
    else if (const auto* level = qobject_cast<const LevelIndicatorWidget*>(&widget))
        state["value"] = level->value();
    else if (const auto* well = qobject_cast<const ColorWellWidget*>(&widget))
        state["color"] = json(well->color());
    else if (const auto* window = qobject_cast<const DialogWindow*>(&widget))
        addWindow(state, *window);
    else
        addMatrix(state, widget);
}

QJsonObject outletState(const QWidget& widget) {
    QJsonObject state{{"class", classOf(widget)},      {"enabled", widget.isEnabled()},
                      {"visible", widget.isVisible()}, {"focused", widget.hasFocus()},
                      {"hidden", widget.isHidden()},   {"frame", frameInWindow(widget)}};
    addContents(state, widget);
    return state;
}

/// A context menu is a window of its own, but its form's outlet.
bool belongsTo(const DialogWindow& form, const QWidget& widget) {
    return widget.window() == &form || qobject_cast<const QMenu*>(&widget);
}

QString outletName(const QWidget& widget) {
    const QString name = widget.objectName();
    return name.startsWith('_') ? name.mid(1) : name;
}

} // namespace

QJsonObject outletsState() {
    QJsonObject outlets;
    for (DialogWindow* form : forms()) {
        outlets[outletName(*form)] = outletState(*form);
        for (const QWidget* widget : form->findChildren<QWidget*>())
            if (belongsTo(*form, *widget) && !isDecoration(widget->objectName()))
                outlets[outletName(*widget)] = outletState(*widget);
    }
    return outlets;
}

} // namespace chromalog::drive
