#pragma once

#include "qt/form_names.h"
#include "qt/mishap.h"

#include <QEvent>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionFrame>

#include <algorithm>

namespace chromalog {

/// A field as low as its font allows, in every style. With a number of digits it is as wide as they are in
/// its font and style, whatever it holds: styles differ in what they keep for themselves, so that is
/// measured.
class CompactField : public QLineEdit {
    Q_OBJECT
    Q_PROPERTY(int digits MEMBER digits_)
  public:
    explicit CompactField(QWidget* parent = nullptr) : QLineEdit(parent) {
        setProperty(kClassName, "QLineEdit");
    }
    QSize sizeHint() const override { return {widthFor(digits_ > 0 ? digits_ : 16), heightNeeded()}; }
    QSize minimumSizeHint() const override { return {widthFor(digits_ > 0 ? digits_ : 4), heightNeeded()}; }

  protected:
    /// Styles set margins of their own when they polish a field: these are wide enough everywhere.
    bool event(QEvent* event) override try {
        const bool used = QLineEdit::event(event);
        if (event->type() == QEvent::Polish || event->type() == QEvent::StyleChange)
            setTextMargins(1, 0, 1, 0);
        return used;
    } catch (...) {
        mishap();
        return true;
    }

  private:
    int heightNeeded() const { return std::max(24, fontMetrics().height() + 8); }
    int widthFor(int digits) const {
        const int text =
            fontMetrics().horizontalAdvance('0') * digits + 6; // the toolkit's margins and the caret
        QStyleOptionFrame option;
        initStyleOption(&option);
        option.rect = QRect(0, 0, 200, heightNeeded());
        return text + 2 + 200 - style()->subElementRect(QStyle::SE_LineEditContents, &option, this).width();
    }

    int digits_ = 0; ///< 0: any width
};

} // namespace chromalog
