#pragma once

#include <QImage>
#include <QWidget>

#include <optional>
#include <vector>

class QScreen;

namespace chromalog {

/// One screen as it was a moment ago, in its own place above everything: what a person aims at holds still,
/// and nothing that shows meanwhile gets into it. Pixels are the device's.
class FrozenScreen : public QWidget {
  public:
    explicit FrozenScreen(QScreen&);

    const QImage& picture() const { return picture_; }
    /// In device pixels of all screens together. The toolkit scales a screen's size and leaves its corner.
    QRect pixels() const { return {corner_, picture_.size()}; }
    /// The device pixel under a point of the toolkit's; nothing where it lies on another screen.
    std::optional<QPoint> pixelAt(QPointF global) const;

    /// The magnifier around that device pixel of all screens; none where it lies on another one.
    void aimAt(QPoint pixel, const std::vector<QColor>& taken);

  protected:
    void paintEvent(QPaintEvent*) override;

  private:
    void updateMagnifier();

    const QPoint corner_;
    QImage picture_;
    std::optional<QPoint> aim_; ///< in the picture
    std::vector<QColor> taken_;
};

} // namespace chromalog
