#pragma once

#include <QPushButton>
#include <QStringList>

#include <algorithm>
#include <functional>

class QMenu;
class QStylePainter;

namespace chromalog {

/// A button that says as much as fits: its texts from the longest to the shortest ("Load…|Load"), at last its
/// sign alone. Its height follows the font and its least width is that of the sign: a text is never cut and
/// never moves anything. Its terms ("triad ±120°|triad") are painted beside a text where one of them fits. A
/// button with a menu (its name in the form, which need not hold it: then it is made when it opens) opens it
/// by its arrow and by the Down key; one that sends no action opens it by any press.
class FitButton : public QPushButton {
    Q_OBJECT
    Q_PROPERTY(QString texts READ texts WRITE setTexts)
    Q_PROPERTY(QString terms MEMBER terms_)
    Q_PROPERTY(QString sign MEMBER sign_)
    Q_PROPERTY(QString menuName READ menuName WRITE setMenuName)
    Q_PROPERTY(QPoint menuSpot READ menuSpot)
    Q_PROPERTY(bool quiet MEMBER quiet_)
  public:
    explicit FitButton(QWidget* parent = nullptr);

    QString texts() const { return texts_.join('|'); }
    void setTexts(const QString&);
    const QString& menuName() const { return menuName_; }
    void setMenuName(const QString&);
    void setMenuMaker(std::function<QMenu*()> f) { makeMenu_ = std::move(f); }
    bool opensByAnyPress() const { return !menuName_.isEmpty() && !property("action").isValid(); }
    void openMenu();
    QPoint menuSpot() const; ///< a press there opens the menu

    /// Levels count from the longest text; the sign's is the last.
    static constexpr int kSign = 3;
    int widthAt(int level) const; ///< pixels
    int levelThatFits(int width) const;
    void setLevel(int); ///< by its row, for all its buttons alike; without a row the width decides

    QSize sizeHint() const override { return {widthAt(std::max(level_, 0)), heightNeeded()}; }
    QSize minimumSizeHint() const override { return {widthAt(level_ < 0 ? kSign : level_), heightNeeded()}; }

  protected:
    void paintEvent(QPaintEvent*) override;
    void changeEvent(QEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void keyPressEvent(QKeyEvent*) override;

  private:
    int heightNeeded() const;
    int signSize() const;
    bool isSignAt(int level) const { return texts_.isEmpty() || (level >= kSign && !sign_.isEmpty()); }
    bool hasArrow() const { return !menuName_.isEmpty() && !texts_.isEmpty(); }
    QString withTerm(const QString& text) const;
    QString textAt(int level) const { return texts_.value(indexOf(level)); }
    int indexOf(int level) const { return std::min(level, int(texts_.size()) - 1); }
    void measure();
    QRect arrowZone() const;
    void showOpen(bool);
    void paintSign(QPainter&, const QRect& inside) const;
    void paintArrow(QPainter&) const;

    QStringList texts_;
    QList<int> widths_; ///< of the texts, in pixels
    QString terms_, sign_, menuName_;
    std::function<QMenu*()> makeMenu_;
    bool quiet_ = false; ///< without a frame until the pointer or the keyboard is on it
    bool menuOpen_ = false;
    int level_ = -1; ///< -1: by its own width
};

} // namespace chromalog
