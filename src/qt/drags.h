#pragma once

#include "desktop/pasteboard.h"
#include "qt/system_colours.h"

#include <QMimeData>

#include <functional>
#include <memory>
#include <optional>

class QDrag;
class QDropEvent;
class QWidget;

namespace chromalog {

/// A colour as programs exchange it (16-bit channels), and inside this process the exact doubles and the
/// drag's source.
class ColourMime : public QMimeData {
    Q_OBJECT
  public:
    explicit ColourMime(const Pasteboard&, const DragSource* source = nullptr);
    const Pasteboard& pasteboard() const { return pasteboard_; }
    const DragSource* source() const { return source_; }

  private:
    Pasteboard pasteboard_;
    const DragSource* source_;
};

/// What mime data carries: our own exactly, a foreign colour by its 16-bit channels, checked. `board` is
/// where it comes from.
Pasteboard pasteboardOf(const QMimeData*, SystemBoard board = SystemBoard::general);

DragInfo dragInfoOf(const QDropEvent&, Point location);

/// The last drag that was begun, for whoever drives or reports the dialog.
struct DragRecord {
    DragRequest request;
    Qt::DropAction result = Qt::IgnoreAction;
};

/// Begins drags. The loop that runs one can be replaced: a platform without drags has none.
class Drags {
  public:
    std::function<Qt::DropAction(QDrag&)> run; ///< set by the constructor to the toolkit's own
    std::optional<DragRecord> last;

    Drags();
    void begin(const DragRequest&, QWidget* from);
};

} // namespace chromalog
