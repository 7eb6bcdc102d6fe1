#pragma once

#include "qt/form_names.h"

#include <QPushButton>

class QPainter;

namespace chromalog {

/// A switch between two ways: checked is the right one, and every press changes it. The way that holds is
/// filled. The ways are said as long as fits: "OK returns first|First" and so on. Between them may stand a
/// caption of what lies there.
class TwoWaySwitch : public QPushButton {
    Q_OBJECT
    Q_PROPERTY(QString left MEMBER left_)
    Q_PROPERTY(QString right MEMBER right_)
    Q_PROPERTY(QString between MEMBER between_)
  public:
    explicit TwoWaySwitch(QWidget* parent = nullptr) : QPushButton(parent) {
        setProperty(kClassName, "QPushButton");
        setAutoDefault(false);
        setCheckable(true);
    }
    QSize sizeHint() const override { return minimumSizeHint(); }
    QSize minimumSizeHint() const override; ///< follows the font alone: the shortest words are "1" and "2"

  protected:
    void paintEvent(QPaintEvent*) override;

  private:
    bool fits(const QString& text, int width) const { return fontMetrics().horizontalAdvance(text) <= width; }
    QString fitting(const QString& texts, int width) const; ///< the longest that fits, or nothing
    int wordsThatFit(int width) const;                      ///< counted alike for both ways
    void paintWay(QPainter&, bool second, const QRectF& half) const;

    QString left_, right_, between_;
};

} // namespace chromalog
