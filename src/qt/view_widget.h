#pragma once

#include "desktop/view.h"
#include "qt/cell_picture.h"
#include "qt/drag_scroll.h"
#include "qt/line_cache.h"

#include <QPointer>
#include <QWidget>

#include <memory>
#include <string>
#include <vector>

namespace chromalog {

class QtDesktop;

/// Shows any view: lays it out, paints it upright, turns the toolkit's events into the view's calls.
class ViewWidget : public QWidget, public ViewHost {
    Q_OBJECT
    Q_PROPERTY(QString className READ className)
  public:
    explicit ViewWidget(QWidget* parent = nullptr);
    ~ViewWidget() override;

    /// Binds the view to this widget, or nothing. The view must outlive the binding.
    void setView(View*, QtDesktop* desktop = nullptr);
    View* view() const { return view_; }
    QtDesktop* desktop() const { return desktop_; }

    QString className() const; ///< the view's; "View" without one
    /// The same as toWidget, for those who know the toolkit's objects alone.
    Q_INVOKABLE QPointF widgetPoint(QPointF inView) const { return toWidget(Point{inView.x(), inView.y()}); }
    QPointF toWidget(Point inView) const;
    QRectF toWidget(const Rect& inView) const;
    Point toView(QPointF inWidget) const;

    bool ringStandsOutside() const { return view_ && !clipWidget(); } ///< the focus ring; lists have a frame

    void needsDisplay() override;
    void frameChanged() override;
    void hiddenChanged() override;
    void accessibleChanged() override;
    void remark(Point, std::string_view) override;
    void editText(TextEdit) override;
    void dropTextEdit() override;
    std::optional<Rect> superviewBounds() const override;
    Colour surround() const override;

  protected:
    bool event(QEvent*) override;
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void moveEvent(QMoveEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void keyPressEvent(QKeyEvent*) override;
    void contextMenuEvent(QContextMenuEvent*) override;
    void focusInEvent(QFocusEvent*) override;
    void focusOutEvent(QFocusEvent*) override;
    void dragEnterEvent(QDragEnterEvent*) override;
    void dragMoveEvent(QDragMoveEvent*) override;
    void dragLeaveEvent(QDragLeaveEvent*) override;
    void dropEvent(QDropEvent*) override;

  private:
    QWidget* clipWidget() const; ///< the viewport that this widget scrolls in, or null
    void layOutView();
    void paintGround(QPainter&, const QRect&) const;
    MouseEvent translated(const QMouseEvent&) const;
    void draggedOver(const QDropEvent&);
    void dragIsOver();

    View* view_ = nullptr;
    QtDesktop* desktop_ = nullptr;
    LineCache lines_;
    CellPicture cells_;
    QPointF pressedAt_;
    bool pressed_ = false;
    bool dragSent_ = false; ///< the view was told of this press's drag and drop
    bool doubled_ = false;  ///< the press was the second of a double click
    bool followingView_ = false;
    DragInfo dragged_;                       ///< the drag that is over the widget
    std::vector<std::string> draggedFiles_;  ///< none where it carries a colour
    std::unique_ptr<DragScroll> dragScroll_; ///< made by the first drag
};

} // namespace chromalog
