#include "drive/attach_drive.h"

#include "drive/command_error.h"
#include "drive/locate.h"
#include "drive/pictures.h"
#include "drive/player.h"
#include "qt/log_ring.h"
#include "qt/qt_desktop.h"

#include <fstream>
#include <iterator>
#include <optional>

namespace chromalog {
namespace {

using namespace drive;

struct Options {
    const char* drive = nullptr;
    const char* screenshot = nullptr;
    const char* finish = nullptr; ///< the operation that ends the pick without a script
};

Options optionsOf(const StandaloneSuite& suite) {
    Options options{suite.option("drive"), suite.option("screenshot"), nullptr};
    if (suite.option("cancel")) options.finish = "cancelPressed:";
    if (suite.option("accept")) options.finish = "okPressed:";
    return options;
}

/// The script of this host run, and how far its picks have played it.
std::optional<Playback> playback;

/// Reads the script for the first pick; an error message where it cannot be read.
std::string openScript(const std::string& file) {
    if (playback && playback->file == file) return {};
    playback.emplace().file = file;
    std::ifstream in(file, std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(in), {});
    if (!in.is_open() || in.bad()) return file + ": cannot be read";
    auto read = readScript(text);
    if (const auto* error = std::get_if<ScriptError>(&read))
        return file + ':' + std::to_string(error->line) + ": " + error->message;
    playback->script = std::move(std::get<Script>(read));
    return {};
}

class Attachment : public Driven {
  public:
    Attachment(QtDesktop& desktop, ChromalogControler& controler, const StandaloneSuite& suite,
               const Options& options)
        : desktop_(desktop), suite_(suite), options_(options) {
        if (options.drive) {
            if (const std::string wrong = openScript(options.drive); !wrong.empty()) fail(wrong);
            player_.emplace(desktop, controler, &suite, *playback,
                            [this](const std::string& why) { fail(why); });
        }
        settle_.wait(Settle::Keyboard::asItIs, [this] { dialogPainted(); });
    }

  private:
    void fail(const std::string& message) {
        sayOnStandardError(message);
        suite_.endWith(2);
    }

    void dialogPainted() {
        if (options_.screenshot && !takeScreenshot()) options_.finish = "cancelPressed:";
        if (player_) return player_->start();
        if (!options_.finish) return;
        QWidget* control = controlSending(options_.finish);
        if (control) return click(middleOf(*control));
        fail(std::string("no visible control sends ") + options_.finish);
        desktop_.modalLoops().stopAll(0);
    }

    bool takeScreenshot() {
        try {
            writePicture(screenPicture(), options_.screenshot);
            return true;
        } catch (const CommandError& error) {
            fail(error.message);
            return false;
        }
    }

    QtDesktop& desktop_;
    const StandaloneSuite& suite_;
    Options options_;
    Settle settle_;
    std::optional<Player> player_;
};

} // namespace

std::unique_ptr<Driven> attachDrive(QtDesktop& desktop, ChromalogControler& controler,
                                    const StandaloneSuite* suite) {
    if (!suite) return nullptr;
    const Options options = optionsOf(*suite);
    if (!options.drive && !options.screenshot && !options.finish) return nullptr;
    return std::make_unique<Attachment>(desktop, controler, *suite, options);
}

} // namespace chromalog
