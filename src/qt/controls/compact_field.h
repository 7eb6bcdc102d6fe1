#pragma once

#include "qt/form_names.h"

#include <QLineEdit>

namespace chromalog {

/// A field as low as its font allows, in every style. With a number of digits it is as wide as they are in
/// its font and style, whatever it holds: styles differ in what they keep for themselves, so that is
/// measured. Where it is one value that is mostly typed over, the click that brings the focus selects it all.
class CompactField : public QLineEdit {
    Q_OBJECT
    Q_PROPERTY(int digits MEMBER digits_)
    Q_PROPERTY(bool selectedByClick MEMBER selectedByClick_)
    Q_PROPERTY(QString fault READ fault WRITE setFault)
  public:
    explicit CompactField(QWidget* parent = nullptr) : QLineEdit(parent) {
        setProperty(kClassName, "QLineEdit");
    }
    QSize sizeHint() const override { return {widthFor(digits_ > 0 ? digits_ : 16), heightNeeded()}; }
    QSize minimumSizeHint() const override { return {widthFor(digits_ > 0 ? digits_ : 4), heightNeeded()}; }

    /// Why the text cannot be read, shown by a frame and a sign and told as the field's tool tip and
    /// description; empty: it can.
    void setFault(const QString&);
    const QString& fault() const { return fault_; }

  protected:
    bool event(QEvent*) override;
    void paintEvent(QPaintEvent*) override;
    void focusInEvent(QFocusEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;

  private:
    int heightNeeded() const;
    int widthFor(int digits) const;
    void keepMargins();

    int digits_ = 0; ///< 0: any width
    bool selectedByClick_ = false;
    bool pressedIn_ = false; ///< this press brought the focus
    QString fault_;
    QString description_; ///< while there is a fault: the field's own
};

} // namespace chromalog
