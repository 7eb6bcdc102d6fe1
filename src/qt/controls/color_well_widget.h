#pragma once

#include "desktop/pasteboard.h"

#include <QVariantList>
#include <QWidget>

#include <functional>

namespace chromalog {

class Drags;

/// A colour well: a colour within a hairline, or without one where it touches another. It drags its colour
/// out, takes a dropped one, and copies its hex code. One that sends an action (a property of the form) is
/// pressed by a click or the space bar.
class ColorWellWidget : public QWidget, public DragSource {
    Q_OBJECT
    Q_PROPERTY(QVariantList rgba READ rgba)
    Q_PROPERTY(bool framed MEMBER framed_)
  public:
    explicit ColorWellWidget(QWidget* parent = nullptr);
    void setDrags(Drags* drags) { drags_ = drags; }

    void setColor(const Colour&);
    Colour color() const { return colour_; }
    QVariantList rgba() const; ///< four components, 0..1, exactly
    QString valueText() const; ///< "RGB 12 34 56, #0c2238"

    /// Called after the well took a dropped colour; without it the well takes none.
    void whenDropped(std::function<void(const DragInfo&)> f) { onDrop_ = std::move(f); }

    QSize sizeHint() const override { return {44, 28}; }
    QSize minimumSizeHint() const override { return {24, 24}; }

    bool isPressable() const { return property("action").isValid(); }
    void copyAsHex();

  Q_SIGNALS:
    void clicked(); ///< of one that is pressable

  protected:
    bool event(QEvent*) override;
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void keyPressEvent(QKeyEvent*) override;
    void focusInEvent(QFocusEvent*) override { redraw(); }
    void focusOutEvent(QFocusEvent*) override { redraw(); }
    void dragEnterEvent(QDragEnterEvent*) override;
    void dragMoveEvent(QDragMoveEvent*) override;
    void dropEvent(QDropEvent*) override;

  private:
    void redraw();

    Colour colour_;
    Drags* drags_ = nullptr;
    std::function<void(const DragInfo&)> onDrop_;
    QPointF pressedAt_;
    bool pressed_ = false; ///< and not dragged since
    bool framed_ = true;
};

} // namespace chromalog
