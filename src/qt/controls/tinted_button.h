#pragma once

#include "base/colour.h"

#include <QPushButton>
#include <QVariantList>

#include <optional>

namespace chromalog {

/// A push button that can lie on a colour; its title stays readable. Painted here: styles treat palettes as
/// they like.
class TintedButton : public QPushButton {
    Q_OBJECT
    Q_PROPERTY(QVariantList rgba READ rgba)
  public:
    using QPushButton::QPushButton;
    void setTint(const Colour& tint);
    const std::optional<Colour>& tint() const { return tint_; }
    QVariantList rgba() const; ///< the tint's four components, 0..1, exactly; empty without one

    QSize sizeHint() const override {
        const QSize text = fontMetrics().size(Qt::TextShowMnemonic, this->text());
        return {std::max(144, text.width() + 40), std::max(32, text.height() + 12)};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent*) override;

  private:
    std::optional<Colour> tint_;
};

} // namespace chromalog
