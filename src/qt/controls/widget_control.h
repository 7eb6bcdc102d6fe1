#pragma once

#include "desktop/controls.h"
#include "qt/controls/context_items.h"
#include "qt/controls/dimmed.h"
#include "qt/controls/plain_text.h"
#include "qt/convert.h"
#include "qt/form_names.h"

#include <QPointer>
#include <QWidget>

namespace chromalog {

/// A control of the seam on top of a widget of the toolkit. Calls after the widget is gone do nothing.
template <typename ControlType, typename WidgetType> class WidgetControl : public ControlType {
  public:
    explicit WidgetControl(WidgetType* widget) : widget_(widget) {}

    void setEnabled(bool on) override {
        if (widget_) widget_->setEnabled(on);
    }
    void setHidden(bool hidden) override {
        if (widget_) widget_->setHidden(hidden);
    }
    void setHelp(std::string_view help) override {
        if (!widget_) return;
        widget_->setToolTip(plainToolTip(toQt(help)));
        widget_->setAccessibleDescription(toQt(help)); // left out, it would be the tool tip with its escapes
    }
    void setDimmed(bool dimmed) override {
        if (widget_) chromalog::setDimmed(*widget_, dimmed);
    }
    void setClassName(const char* name) override {
        if (widget_) widget_->setProperty(kClassName, name);
    }

    void addMenuItems(std::function<MenuItems()> items) override {
        if (widget_) addContextItems(*widget_, std::move(items));
    }

  protected:
    QPointer<WidgetType> widget_;
};

} // namespace chromalog
