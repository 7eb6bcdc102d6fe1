#pragma once

#include "qt/layout/container.h"

#include <QList>

namespace chromalog {

/// Sections one below the other, in the order of the form. The stage takes what the others leave, as far as
/// it can use it; the rest goes to the sections that may grow (property "grow": a weight).
class WorkColumn : public Container {
    Q_OBJECT
  public:
    using Container::Container;
    int leastHeight(int width) const; ///< below it the column scrolls

    /// Where the column scrolls in a view of this height the stage fills what the fields leave of it, or all
    /// of it and comes first. 0: nothing scrolls.
    void setScrolledIn(int viewHeight, bool stageFirst);

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override { return minimumSizeHint(); }
    void layOut() override;

  protected:
    void childrenChanged() override;

  private:
    int heightAround(const QWidget* stage, int width) const;
    QList<QWidget*> sections() const;
    int leastStage(int width) const;
    Part stage_{"stage"}, fields_{"fields"};
    int viewHeight_ = 0;
    bool stageFirst_ = false;
};

} // namespace chromalog
