#include "drive/player.h"

#include "drive/command_error.h"
#include "drive/locate.h"
#include "drive/pointer.h"
#include "drive/prompts.h"
#include "qt/driven_dialog.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QProgressDialog>
#include <QThread>
#include <QTimer>

#include <utility>

namespace chromalog::drive {
namespace {

constexpr int kMostClosings = 100;

int loopLevel() {
    return QThread::currentThread()->loopLevel();
}

bool needsKeyboard(Verb verb) {
    return verb == Verb::type || verb == Verb::append || verb == Verb::key;
}

std::string takeFirst(std::deque<std::string>& queue) {
    std::string first = std::move(queue.front());
    queue.pop_front();
    return first;
}

} // namespace

Player::Player(DrivenDialog& dialog, const StandaloneSuite* standalone, Playback& playback,
               std::function<void(const std::string&)> fail)
    : dialog_(dialog), playback_(playback), fail_(std::move(fail)), commands_(dialog, standalone),
      settle_([&dialog] { dialog.mishap(); }) {}

void Player::start() {
    again(Settle::Keyboard::ours);
}

void Player::again(Settle::Keyboard keyboard) {
    settle_.wait(keyboard, [this] { next(); });
}

/// A command that looks after events itself (a long print job does) has not ended; one that runs a loop of
/// its own, or shows its progress, waits for what the script does next.
bool Player::midCommand() const {
    return level_ == loopLevel() && !qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
}

void Player::next() {
    if (midCommand()) return again();
    try {
        if (dialog_.finishWork()) return again();
        checkWritten();
        if (answerPrompts()) return;
        if (finishing_ || playback_.ended()) return finish();
        const Command& command = playback_.script[playback_.next];
        if (makesWay(command)) return;
        ++playback_.next;
        checkAllowed(command);
        play(command);
    } catch (const CommandError& error) {
        stop(error.message);
    } catch (const std::exception& error) {
        stop(error.what());
    }
}

/// The dialog passes over a file that could not be written in silence; a script that names it does not.
void Player::checkWritten() {
    const auto notWritten = dialog_.takeNotWritten();
    if (!notWritten.empty() && !finishing_) throw CommandError{notWritten.front()};
}

/// What the script has said beforehand, or with an earlier command, about something that is open now.
bool Player::answerPrompts() {
    again(); // before the answer: it may run a loop of its own
    if (commands_.chooseWaitingItem()) return true;
    if (QMessageBox* question = replaceQuestion(); question && !finishing_) return agree(*question), true;
    QMessageBox* alert = openAlert(dialog_);
    if (alert && playback_.dismissals > 0) {
        --playback_.dismissals;
        return dismiss(*alert), true;
    }
    QFileDialog* panel = dialog_.filePanel();
    if (!panel || alert || playback_.choices.empty()) return false;
    answerPanel(*panel, takeFirst(playback_.choices));
    return true;
}

/// A menu that the command leaves closes first, and the keyboard comes to the dialog. True where the command
/// has to wait for that.
bool Player::makesWay(const Command& command) {
    QWidget* popup = QApplication::activePopupWidget();
    if (popup && !commands_.leavesMenuOpen(command)) return popup->close();
    const bool wants = needsKeyboard(command.verb) && !QGuiApplication::focusWindow();
    if (!wants || std::exchange(askedForKeyboard_, true)) return false;
    if (!forms().isEmpty()) forms().front()->activateWindow();
    again(Settle::Keyboard::ours);
    return true;
}

void Player::checkAllowed(const Command& command) const {
    if (allowedInPanels(command.verb)) return;
    const std::string name(nameOf(command.verb));
    if (const QMessageBox* alert = openAlert(dialog_))
        throw CommandError{name + " is not allowed while an alert is open: " + fromQt(textOf(*alert))};
    if (dialog_.filePanel()) throw CommandError{name + " is not allowed while a file panel is open"};
}

void Player::play(const Command& command) {
    askedForKeyboard_ = false;
    if (!dialog_.nextPdf() && !playback_.prints.empty()) dialog_.nextPdf() = takeFirst(playback_.prints);
    struct Running {
        int& level;
        int outer;
        ~Running() { level = outer; }
    } running{level_, std::exchange(level_, loopLevel())};
    switch (command.verb) {
    case Verb::wait:
        return wait(command);
    case Verb::choose:
        return choose(command);
    case Verb::answer:
        return answerAlert();
    case Verb::print:
        return print(command);
    default:
        return commands_.perform(command);
    }
}

void Player::wait(const Command& command) {
    settle_.stop();
    QTimer::singleShot(int(command.number(0)), Qt::PreciseTimer, &settle_,
                       [this] { settle_.guarded([this] { again(); }); });
}

void Player::choose(const Command& command) {
    if (QFileDialog* panel = dialog_.filePanel())
        answerPanel(*panel, command.text(0));
    else
        playback_.choices.push_back(command.text(0));
}

void Player::answerPanel(QFileDialog& panel, const std::string& choice) {
    if (choice == "cancel")
        panel.reject();
    else
        drive::answer(panel, toQt(choice));
}

void Player::answerAlert() {
    if (QMessageBox* alert = openAlert(dialog_))
        dismiss(*alert);
    else
        ++playback_.dismissals;
}

void Player::print(const Command& command) {
    QPrintDialog* dialog = openPrintDialog();
    if (!dialog)
        playback_.prints.push_back(command.text(0));
    else if (!printToFile(*dialog, toQt(command.text(0))))
        throw CommandError{"the print dialog does not print to files"};
}

/// The rest of the pick: whatever is open is closed, the dialog last.
void Player::finish() {
    const QMessageBox* alert = openAlert(dialog_);
    if (alert && !finishing_) return stop("an alert is not answered: " + fromQt(textOf(*alert)));
    finishing_ = true;
    again();
    QDialog* dialog = dialog_.window();
    if (++closings_ > kMostClosings || !dialog) return dialog_.stopAllLoops();
    if (closeTopmost(dialog)) return;
    QWidget* cancel = controlSending("cancelPressed:");
    if (cancel)
        click(middleOf(*cancel));
    else
        dialog->reject();
}

void Player::stop(const std::string& message) {
    const std::size_t begun = playback_.next > 0 ? playback_.next - 1 : 0;
    const int line = begun < playback_.script.size() ? playback_.script[begun].line : 0;
    fail_(playback_.file + ':' + std::to_string(line) + ": " + message);
    playback_.end();
    finishing_ = true;
    again();
}

} // namespace chromalog::drive
