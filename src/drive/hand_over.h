#pragma once

#include "drive/pointer.h"

#include <functional>

class QDrag;
class QMimeData;

namespace chromalog::drive {

/// Offers the data to the widget as a drag does that enters it, moves to the point and is dropped there.
/// Works the same on platforms without drags. The action that the target took; Qt::IgnoreAction where it
/// refused. `held`: the keys.
Qt::DropAction offer(const QMimeData&, const PointerTarget& target,
                     Qt::KeyboardModifiers held = Qt::NoModifier);

/// While it lives, a drag that begins is handed to the target at once instead of following the pointer.
class HandOver {
  public:
    /// The target is asked for when a drag has begun: it may have to be scrolled into view.
    HandOver(std::function<Qt::DropAction(QDrag&)>& loop, std::function<PointerTarget()> target);
    ~HandOver();
    HandOver(const HandOver&) = delete;
    HandOver& operator=(const HandOver&) = delete;

    bool happened() const { return happened_; }

  private:
    std::function<Qt::DropAction(QDrag&)>& loop_; ///< that runs drags
    std::function<PointerTarget()> target_;
    std::function<Qt::DropAction(QDrag&)> before_;
    bool happened_ = false;
};

} // namespace chromalog::drive
