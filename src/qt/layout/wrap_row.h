#pragma once

#include "qt/layout/container.h"

namespace chromalog {

/// Blocks in a row, on as many lines as their least widths need. The first block of a line takes its spare
/// width.
class WrapRow : public Container {
    Q_OBJECT
  public:
    using Container::Container;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize minimumSizeHint() const override { return {0, 0}; }
    QSize sizeHint() const override { return {0, heightForWidth(width())}; }

  protected:
    void layOut() override;
    void childrenChanged() override;

  private:
    QList<QWidget*> blocks() const;
    QList<QList<QWidget*>> lines(int width) const;
};

} // namespace chromalog
