#pragma once

#include <QPushButton>

namespace chromalog {

/// A switch between two ways; every press changes the way. The one that holds is filled. The ways are said as
/// long as fits: "OK returns first|First" and so on. Between them may stand a caption of what lies there.
class TwoWaySwitch : public QPushButton {
    Q_OBJECT
    Q_PROPERTY(QString left MEMBER left_)
    Q_PROPERTY(QString right MEMBER right_)
    Q_PROPERTY(QString between MEMBER between_)
    Q_PROPERTY(int way READ way WRITE setWay)
  public:
    explicit TwoWaySwitch(QWidget* parent = nullptr) : QPushButton(parent) { setAutoDefault(false); }
    int way() const { return way_; }
    void setWay(int way) {
        way_ = way;
        update();
    }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override; ///< follows the font alone: the shortest words are "1" and "2"

  protected:
    void paintEvent(QPaintEvent*) override;

  private:
    bool fits(const QString& text, int width) const { return fontMetrics().horizontalAdvance(text) <= width; }
    QString fitting(const QString& texts, int width) const; ///< the longest that fits, or nothing

    QString left_, right_, between_;
    int way_ = 0;
};

} // namespace chromalog
