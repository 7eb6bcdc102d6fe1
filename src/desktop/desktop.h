#pragma once

#include "base/bitmap.h"
#include "desktop/controls.h"
#include "desktop/file_memory.h"
#include "desktop/form.h"
#include "desktop/panels.h"
#include "desktop/pasteboard.h"
#include "desktop/picture_reading.h"
#include "desktop/printing.h"
#include "desktop/screen_pick.h"
#include "desktop/status_line.h"
#include "desktop/worker.h"

#include <cstdint>
#include <ctime>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace chromalog {

/// A one-shot timer of the running modal loop. Destroying it cancels it.
class Timer {
  public:
    virtual ~Timer() = default;
    virtual void fireIn(double seconds) = 0; ///< moves the fire date of a timer that has not fired
};

/// The platform, asked for everything that a room cannot do alone. One implementation shows a real dialog,
/// a fake serves the tests. Main thread only. Everything that waits (timers, panels) ends with the pick.
class Desktop {
  public:
    virtual ~Desktop() = default;

    /// Loads the interface file `name` and connects the owner's outlets and actions. Null where it is missing
    /// or broken.
    virtual std::unique_ptr<Form> loadForm(std::string_view name, const FormOwner&) = 0;

    /// The host's main window as the platform's own identifier, 0 where there is none: dialogs belong to it.
    virtual void setHostWindow(std::intptr_t) {}

    virtual std::int64_t runModal(Window&) = 0;    ///< returns the code given to stopModal
    virtual void stopModal(std::int64_t code) = 0; ///< ends the innermost loop
    virtual void runAlert(const Alert&) = 0;       ///< returns when it was dismissed
    virtual void showAbout(Window&) {}             ///< the product and its version, beside the pick
    /// Begins a sheet on `parent` and returns at once; the answer comes later, from the modal loop.
    virtual void beginOpenPanel(const OpenPanel&, Window& parent, PanelAnswer) = 0;
    virtual void beginSavePanel(const SavePanel&, Window& parent, PanelAnswer) = 0;

    virtual const Pasteboard& generalPasteboard() const = 0;
    virtual void setGeneralPasteboard(const Pasteboard&) = 0;
    virtual void returned(const Colour&) {} ///< what OK gives the host, while the dialog has the focus
    virtual void beginDrag(const DragRequest&) = 0; ///< from a mouseDragged of the source

    virtual std::unique_ptr<Timer> startTimer(double seconds, std::function<void()>) = 0;
    /// Runs `work`, which throws nothing and touches nothing of the pick's but what it was given, beside the
    /// event loop; `then` follows on the main thread. One at a time: the one before, with its `then`, ends
    /// first. A desktop without a screen does both at once.
    virtual void inBackground(std::function<void()> work, std::function<void()> then) {
        work();
        then();
    }
    virtual void finishBackground() {} ///< returns when nothing of the kind is under way
    /// Another thread for what may take a second: it holds up nothing of the above.
    virtual std::unique_ptr<Worker> makeWorker() { return std::make_unique<Worker>(); }

    /// A picture in a file of this machine; nothing is read before it is asked for.
    virtual PictureSource pictureFile(const std::string& path) const { return {path, {}}; }

    virtual void playSound(std::string_view name) = 0; ///< nothing where the system does not have it
    virtual bool optionKeyHeld() const = 0;            ///< asked of the keyboard now
    virtual std::string userName() const = 0;          ///< login name
    virtual std::tm localTime() const = 0;
    virtual std::string
    localized(std::string_view key) const = 0;   ///< the key itself where there is no translation
    virtual void log(std::string_view line) = 0; ///< one line of the system's log
    /// The user's applications directory, with no slash at the end; empty where there is none.
    virtual std::string applicationsDirectory() const = 0;
    /// Whether that directory is one that a person named for this program: nothing outside it is then read.
    virtual bool hasDataFolderOfItsOwn() const { return true; }
    /// The folder of colour books that stands for the host's own; empty where none was named.
    virtual std::string colourBooksDirectory() const = 0;

    /// Palettes that a person named to begin with.
    virtual std::vector<std::string> filesToImport() const { return {}; }

    virtual StatusLine& statusLine() = 0; ///< says quietly what no alert may say
    virtual FileMemory& fileMemory() {
        static FileMemory nothing;
        return nothing;
    }
    /// A number that a person has set and finds again in the next pick; `otherwise` where none is kept. May
    /// be any number at all. A script keeps none.
    virtual double keptNumber(std::string_view name, double otherwise) const { return (void)name, otherwise; }
    virtual void keepNumber(std::string_view name, double value) { (void)name, (void)value; }
    virtual bool animates() const { return false; } ///< whether marks may fade

    /// Lets the person take colours from all that the screens show; `parent` stays where it is. Null where it
    /// was answered at once, as where it cannot be done.
    virtual std::unique_ptr<ScreenPick> pickFromScreen(Window& parent, ScreenAnswer) = 0;

    virtual Bitmap capture(View&) = 0; ///< the view's own picture at one pixel a point

    virtual PrintInfo& sharedPrintInfo() = 0;
    virtual void runPageLayout(Window& parent) = 0; ///< a sheet that edits the shared print settings
    virtual PrintOutcome runPrintOperation(const PrintJob&) = 0;
};

} // namespace chromalog
