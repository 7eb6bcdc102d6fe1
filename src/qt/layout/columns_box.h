#pragma once

#include "qt/layout/container.h"

namespace chromalog {

/// The columns of the dialog: the work between the two lists, and the library beside list 1 while it is
/// shown. A list's width follows the width of this box and the font alone; the work takes the rest. Parts:
/// "library", "list1", "work", "list2".
class ColumnsBox : public Container {
    Q_OBJECT
  public:
    using Container::Container;
    QSize minimumSizeHint() const override { return {640, 320}; }
    QSize sizeHint() const override { return {1256, 680}; }

    static int listWidth(int width); ///< pixels, in a box of that width

  protected:
    void layOut() override;

  private:
};

} // namespace chromalog
