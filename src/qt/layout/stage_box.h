#pragma once

#include "qt/layout/container.h"

namespace chromalog {

/// The wheel with its strip, and the chart over its controls: one height for all, wheel and chart square. The
/// parts are named in the form: "wheel", "strip", "chart", "controls". Their sizes follow this box's size and
/// the font's height, never a text.
class StageBox : public Container {
    Q_OBJECT
  public:
    using Container::Container;

    static constexpr int kLeastSide = 200; ///< of the wheel, pixels

    /// Pixels high that a stage of this width can use: more would stay empty.
    int usefulHeight(int width) const;

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return usefulHeight(width); }
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override { return minimumSizeHint(); }

  protected:
    void layOut() override;

  private:
    int controlsHeight() const; ///< with the gap above them
    int chartSide(int wheel, int controls, int width) const;

    Part wheel_{"wheel"}, strip_{"strip"}, chart_{"chart"}, controls_{"controls"};
};

} // namespace chromalog
