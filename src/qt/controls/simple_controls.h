#pragma once

#include "qt/controls/widget_control.h"

#include <QAbstractButton>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QSlider>

namespace chromalog {

/// Push buttons, two-state buttons and check boxes.
class ButtonControl : public WidgetControl<Button, QAbstractButton> {
  public:
    using WidgetControl::WidgetControl;
    void setTitle(std::string_view) override;
    void setBackground(const Colour&) override; ///< a TintedButton only
    void setState(int) override;
    int state() const override;
    void whenMenuOpens(std::function<MenuItems()>) override; ///< a FitButton only
};

class SliderControl : public WidgetControl<Slider, QSlider> {
  public:
    using WidgetControl::WidgetControl;
    double value() const override { return widget_ ? widget_->value() : 0; }
};

class TextViewControl : public WidgetControl<TextView, QPlainTextEdit> {
  public:
    using WidgetControl::WidgetControl;
    void setText(std::string_view) override;
};

/// The radio buttons of a container, in their order in the form; rows count from 0.
class RadioMatrixControl : public WidgetControl<RadioMatrix, QWidget> {
  public:
    using WidgetControl::WidgetControl;
    void selectRow(int) override;
    int selectedRow() const override; ///< -1 where none is on
    std::string selectedTitle() const override;
};

class RowListControl : public WidgetControl<RowList, QListWidget> {
  public:
    using WidgetControl::WidgetControl;
    void setRows(const std::vector<std::string>&) override;
    int selectedRow() const override { return widget_ ? widget_->currentRow() : -1; }
};

} // namespace chromalog
