#pragma once

#include "qt/layout/container.h"

namespace chromalog {

class FieldsBox;
class WorkColumn;

/// The work: the wells of the working colours and a column of sections. Where everything fits, the wells
/// stand between the fields of the two colours; else they stay on top and the column below them scrolls.
/// Parts: "wells", and "scroll": a scroll area around a WorkColumn that holds a FieldsBox.
class WorkArea : public Container {
    Q_OBJECT
  public:
    using Container::Container;
    QSize minimumSizeHint() const override { return {0, 0}; }

  protected:
    void layOut() override;

  private:
    bool fitsWhole(const WorkColumn&, const FieldsBox&, const QWidget& wells) const;

    Part scroll_{"scroll"}, wells_{"wells"};
    bool layingOut_ = false;
};

} // namespace chromalog
