#pragma once

#include "qt/controls/widget_control.h"

#include <QAction>

namespace chromalog {

/// An item of a form's menu as a button: its title, whether it can be chosen, and whether it is checked.
class ItemControl : public Button {
  public:
    explicit ItemControl(QAction* item) : item_(item) {}

    void setTitle(std::string_view title) override {
        if (item_) item_->setText(toQt(title).replace('&', "&&"));
    }
    void setEnabled(bool on) override {
        if (item_) item_->setEnabled(on);
    }
    void setHidden(bool hidden) override {
        if (item_) item_->setVisible(!hidden);
    }
    void setState(int state) override {
        if (item_) item_->setChecked(state != 0);
    }
    int state() const override { return item_ && item_->isChecked() ? 1 : 0; }

  private:
    QPointer<QAction> item_;
};

} // namespace chromalog
