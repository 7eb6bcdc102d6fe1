#include "drive/attach_drive.h"

#include "drive/command_error.h"
#include "drive/locate.h"
#include "drive/pictures.h"
#include "drive/player.h"

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
struct KeptPlayback : Driven, Playback {};

/// Reads the script for the first pick; an error message where it cannot be read.
std::string openScript(KeptPlayback& playback, const std::string& file) {
    if (playback.file == file) return {};
    static_cast<Playback&>(playback) = {};
    playback.file = file;
    std::ifstream in(file, std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(in), {});
    if (!in.is_open() || in.bad()) return file + ": cannot be read";
    auto read = readScript(text);
    if (const auto* error = std::get_if<ScriptError>(&read))
        return file + ':' + std::to_string(error->line) + ": " + error->message;
    playback.script = std::move(std::get<Script>(read));
    return {};
}

class Attachment : public Driven {
  public:
    Attachment(DrivenDialog& dialog, const StandaloneSuite& suite, const Options& options,
               KeptPlayback& playback)
        : dialog_(dialog), suite_(suite), options_(options), settle_([&dialog] { dialog.mishap(); }) {
        if (options.drive) {
            if (const std::string wrong = openScript(playback, options.drive); !wrong.empty()) fail(wrong);
            player_.emplace(dialog, &suite, playback, [this](const std::string& why) { fail(why); });
        }
        settle_.wait(Settle::Keyboard::asItIs, [this] { dialogPainted(); });
    }

  private:
    void fail(const std::string& message) {
        dialog_.say(message);
        suite_.endWith(2);
    }

    void dialogPainted() {
        if (options_.screenshot && !takeScreenshot()) options_.finish = "cancelPressed:";
        if (player_) return player_->start();
        if (!options_.finish) return;
        QWidget* control = controlSending(options_.finish);
        if (control) return click(middleOf(*control));
        fail(std::string("no visible control sends ") + options_.finish);
        dialog_.stopAllLoops();
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

    DrivenDialog& dialog_;
    const StandaloneSuite& suite_;
    Options options_;
    Settle settle_;
    std::optional<Player> player_;
};

} // namespace

std::unique_ptr<Driven> attachDrive(DrivenDialog& dialog, const StandaloneSuite& suite,
                                    std::unique_ptr<Driven>& kept) {
    const Options options = optionsOf(suite);
    if (!options.drive && !options.screenshot && !options.finish) return nullptr;
    if (!kept) kept = std::make_unique<KeptPlayback>();
    return std::make_unique<Attachment>(dialog, suite, options, static_cast<KeptPlayback&>(*kept));
}

} // namespace chromalog
