#pragma once

#include "qt/layout/container.h"

namespace chromalog {

/// The fields of the two working colours: left and right of a free middle, side by side, or one below the
/// other. Parts: "first", "second".
class FieldsBox : public Container {
    Q_OBJECT
  public:
    enum class Arrangement { around, beside, below };

    using Container::Container;
    void setArrangement(Arrangement);

    /// Pixels that the fields of one colour take of a width, and the least that they need.
    int fieldsWidth(int width) const;
    int leastFieldsWidth() const;
    QRect middle() const; ///< what lies between the fields where they stand around it

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int) const override { return heightOf(arrangement_); }
    int heightOf(Arrangement) const;
    QSize minimumSizeHint() const override { return {0, 0}; }
    QSize sizeHint() const override { return {2 * leastFieldsWidth(), heightForWidth(width())}; }

    static constexpr int kGap = 8; ///< pixels between the fields and what stands beside them

  protected:
    void layOut() override;
    void childrenChanged() override;

  private:
    int rowsHeight() const; ///< of one colour

    Part first_{"first"}, second_{"second"};
    Arrangement arrangement_ = Arrangement::around;
};

} // namespace chromalog
