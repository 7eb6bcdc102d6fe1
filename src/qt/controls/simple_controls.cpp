#include "qt/controls/simple_controls.h"

#include "qt/controls/fit_button.h"
#include "qt/controls/tinted_button.h"
#include "qt/convert.h"
#include "qt/item_menu.h"
#include "qt/language/translate_form.h"

#include <QMenu>
#include <QRadioButton>

namespace chromalog {

void ButtonControl::setTitle(std::string_view title) {
    if (auto* fitting = qobject_cast<FitButton*>(widget_.data()))
        fitting->setTexts(toQt(title));
    else if (widget_)
        widget_->setText(toQt(title));
}

void ButtonControl::setBackground(const Colour& colour) {
    if (auto* tinted = qobject_cast<TintedButton*>(widget_.data())) tinted->setTint(colour);
}

void ButtonControl::setState(int state) {
    if (widget_) widget_->setChecked(state != 0);
}

int ButtonControl::state() const {
    return widget_ && widget_->isChecked() ? 1 : 0;
}

void ButtonControl::whenMenuOpens(std::function<MenuItems()> items) {
    auto* button = qobject_cast<FitButton*>(widget_.data());
    if (!button) return;
    button->setMenuMaker([button, items = std::move(items)] { return makeMenu(items(), *button->window()); });
}

void TextViewControl::setText(std::string_view text) {
    if (widget_) widget_->setPlainText(toQt(text));
}

void RadioMatrixControl::selectRow(int row) {
    if (!widget_) return;
    const auto buttons = widget_->findChildren<QRadioButton*>();
    if (row >= 0 && row < buttons.size()) buttons[row]->setChecked(true);
}

int RadioMatrixControl::selectedRow() const {
    if (!widget_) return -1;
    const auto buttons = widget_->findChildren<QRadioButton*>();
    for (int row = 0; row < buttons.size(); ++row)
        if (buttons[row]->isChecked()) return row;
    return -1;
}

std::string RadioMatrixControl::selectedTitle() const {
    if (!widget_) return {};
    const auto buttons = widget_->findChildren<QRadioButton*>();
    const int row = selectedRow();
    if (row < 0) return {};
    const QVariant english = buttons[row]->property(kEnglish);
    return fromQt(english.isValid() ? english.toString() : buttons[row]->text());
}

void RowListControl::setRows(const std::vector<std::string>& rows) {
    if (!widget_) return;
    widget_->clear();
    for (const std::string& row : rows)
        widget_->addItem(toQt(row));
    widget_->setCurrentRow(rows.empty() ? -1 : 0);
}

} // namespace chromalog
