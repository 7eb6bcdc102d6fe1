#pragma once

#include "qt/controls/color_well_widget.h"
#include "qt/controls/level_indicator_widget.h"
#include "qt/controls/list_scroll_area.h"
#include "qt/controls/stepper_widget.h"
#include "qt/controls/widget_control.h"

namespace chromalog {

// The controls whose widgets are our own.

class ColorWellControl : public WidgetControl<ColorWell, ColorWellWidget> {
  public:
    using WidgetControl::WidgetControl;
    void setColor(const Colour& colour) override {
        if (widget_) widget_->setColor(colour);
    }
    Colour color() const override { return widget_ ? widget_->color() : Colour(); }
    void whenDropped(std::function<void(const DragInfo&)> f) override {
        if (widget_) widget_->whenDropped(std::move(f));
    }
};

class StepperControl : public WidgetControl<Stepper, StepperWidget> {
  public:
    using WidgetControl::WidgetControl;
    void configure(double minimum, double maximum, double increment, double value, bool wraps) override {
        if (widget_) widget_->configure(minimum, maximum, increment, value, wraps);
    }
    double value() const override { return widget_ ? widget_->value() : 0; }
};

class LevelIndicatorControl : public WidgetControl<LevelIndicator, LevelIndicatorWidget> {
  public:
    using WidgetControl::WidgetControl;
    void setValue(double value) override {
        if (widget_) widget_->setValue(value);
    }
};

class ScrollViewControl : public WidgetControl<ScrollView, ListScrollArea> {
  public:
    using WidgetControl::WidgetControl;
    void setVerticalScroller(double value) override {
        if (widget_) widget_->setVerticalScroller(value);
    }
    double verticalScroller() const override { return widget_ ? widget_->verticalScroller() : 0; }
    void scrollToPoint(Point p) override {
        if (widget_) widget_->scrollToPoint(p);
    }
    void setNeedsDisplay() override {
        if (widget_) widget_->setNeedsDisplay();
    }
};

} // namespace chromalog
