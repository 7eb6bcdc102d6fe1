#pragma once

#include "qt/layout/container.h"

namespace chromalog {

/// A row whose buttons all say as much as fits for every one of them: words where there is room, signs else.
class FitRow : public Container {
    Q_OBJECT
  public:
    using Container::Container;
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

  protected:
    void layOut() override; ///< chooses what the buttons say

  private:
    int widthAt(int level) const;
    bool choosing_ = false;
};

} // namespace chromalog
