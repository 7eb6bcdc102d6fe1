#pragma once

#include "base/bitmap.h"
#include "qt/convert.h"
#include "qt/driven_state.h"
#include "qt/form_names.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class QDialog;
class QDrag;
class QFileDialog;
class QMessageBox;

struct StandaloneSuite;

namespace chromalog {

/// Whether a form's object is the outlet of that name. A leading underscore is not the name's own.
inline bool isOutlet(const QObject& object, const QString& name) {
    return object.objectName() == name || object.objectName() == '_' + name;
}

/// The outlet of that name in a form's window, which may be the window itself; null where there is none.
inline QWidget* outletIn(QWidget& window, const QString& name) {
    if (isOutlet(window, name)) return &window;
    for (QWidget* widget : window.findChildren<QWidget*>())
        if (widget->window() == &window && isOutlet(*widget, name)) return widget;
    return nullptr;
}

/// The dialog for those who drive it from a module of their own: all that they may not ask of the toolkit's
/// objects. It holds no state of its own, and neither does anything that this header brings along: a second
/// module that compiles it shares nothing with the first but what it is handed.
class DrivenDialog {
  public:
    virtual ~DrivenDialog() = default;

    virtual QDialog* window() const = 0; ///< the first form's; null where none is loaded
    virtual void stopAllLoops() = 0;     ///< of the dialog and its modal windows, with the code 0

    // What the dialog asks of the person now; a script answers in their place.
    virtual std::function<Qt::KeyboardModifiers()>& keyboard() = 0;
    virtual std::function<Qt::DropAction(QDrag&)>& dragLoop() = 0;
    virtual QFileDialog* filePanel() const = 0; ///< that waits for an answer, or null
    virtual QMessageBox* openAlert() const = 0; ///< of the dialog, that waits, or null
    virtual std::optional<std::string>& nextPdf() = 0;
    virtual PrintInfo& sharedPrintInfo() = 0;

    /// Files that could not be written since this was last asked, as "PATH: why".
    virtual std::vector<std::string> takeNotWritten() = 0;
    /// Waits for what the dialog does beside its event loop and a person would wait for; false where that is
    /// nothing.
    virtual bool finishWork() = 0;

    /// The selected row of a list, in the widget's coordinates: y down, perhaps out of its bounds.
    virtual Rect selectedRow(const QWidget& list) const = 0;
    /// The size of the view that the widget shows; nothing where it shows none.
    virtual std::optional<Size> viewSize(const QWidget&) const = 0;
    /// That view's own picture at one pixel a point; empty where it shows none.
    virtual Bitmap viewPicture(const QWidget&) = 0;

    /// Converts four 8-bit components in place, by the host; they stay as they are where it cannot.
    virtual void hostToRgb(std::int16_t space, std::int16_t* components) const = 0;

    virtual DrivenState state() const = 0;

    virtual void say(std::string_view line) = 0; ///< on standard error
    /// Within a catch: no exception may cross the toolkit's frames. The pick takes what was thrown.
    virtual void mishap() noexcept = 0;
};

/// Something that acts on the dialog for as long as it lives, at most as long as the desktop.
class Driven {
  public:
    virtual ~Driven() = default;
};

/// Attaches what the stand-alone host asks for to a dialog before its modal loop runs; null where it asks for
/// nothing.
using AttachDriven = std::unique_ptr<Driven> (*)(DrivenDialog&, const StandaloneSuite&);

} // namespace chromalog
