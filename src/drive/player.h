#pragma once

#include "drive/commands.h"
#include "drive/settle.h"

#include <deque>
#include <functional>
#include <string>

class QFileDialog;

namespace chromalog::drive {

/// A script and how far it has been played. It outlives a pick: the next pick of the same host run goes on
/// with it.
struct Playback {
    std::string file;
    Script script;
    std::size_t next = 0;
    std::deque<std::string> choices, prints; ///< answers that wait for their panel and their job
    int dismissals = 0;                      ///< alerts that may come

    bool ended() const { return next >= script.size(); }
    void end() { next = script.size(); }
};

/// Plays a script in one pick: one command per turn of the event loop, also in the loops of menus, alerts and
/// panels that a command has opened. Where the script ends or fails, the pick is cancelled.
class Player {
  public:
    /// `fail` is told what went wrong, once: "FILE:LINE: message".
    Player(DrivenDialog&, const StandaloneSuite*, Playback&, std::function<void(const std::string&)> fail);

    void start(); ///< before the dialog's loop runs

  private:
    void next(); ///< from the event loop, when the dialog is at rest
    void again(Settle::Keyboard = Settle::Keyboard::asItIs);
    bool midCommand() const;
    bool answerPrompts();
    bool makesWay(const Command&);
    void checkAllowed(const Command&) const;
    void play(const Command&);
    void finish();
    void stop(const std::string& message);
    void checkWritten();

    void wait(const Command&);
    void choose(const Command&);
    void answerPanel(QFileDialog&, const std::string& choice);
    void answerAlert();
    void print(const Command&);

    DrivenDialog& dialog_;
    Playback& playback_;
    std::function<void(const std::string&)> fail_;
    Commands commands_;
    Settle settle_;
    int closings_ = 0;
    bool askedForKeyboard_ = false;
    bool finishing_ = false;
    int level_ = -1; ///< depth of event loops at which the running command began; -1 where none runs
};

} // namespace chromalog::drive
