#pragma once

#include "base/geometry.h"

#include <QScrollArea>

class QLabel;

namespace chromalog {

class ViewWidget;

/// Scrolls one view that sets its own height. The view is always as wide as the clip.
/// While it is empty a hint of the form's lies over the clip: no part of the view's picture, and nothing to
/// the mouse.
class ListScrollArea : public QScrollArea {
    Q_OBJECT
    Q_PROPERTY(QString hint READ hint WRITE setHint)
  public:
    explicit ListScrollArea(QWidget* parent = nullptr);

    void setVerticalScroller(double); ///< 0..1
    double verticalScroller() const;
    void scrollToPoint(Point);
    void setNeedsDisplay();

    ViewWidget* content() const;

    QString hint() const { return hints_.join('|'); } ///< from the longest on; the first that fits shows
    void setHint(const QString& hints) { hints_ = hints.split('|', Qt::SkipEmptyParts); }
    void showHint(bool);

  protected:
    void resizeEvent(QResizeEvent*) override;
    bool event(QEvent*) override;

  private:
    void paintFrame();
    int range() const; ///< content height − clip height, in points
    void fitHint();

    QLabel* const hint_;
    QStringList hints_;
    bool hintShown_ = false;
};

} // namespace chromalog
