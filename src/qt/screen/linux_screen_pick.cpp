// By the desktop's own picker where a portal offers one, else from an X server with a magnifier.
#include "base/translated.h"
#include "qt/screen/begin_screen_pick.h"
#include "qt/screen/portal_colour.h"
#include "qt/screen/x11_pick.h"

#include <QGuiApplication>
#include <QWidget>

#include <optional>

namespace chromalog {

namespace {

class LinuxScreenPick : public ScreenPick {
  public:
    LinuxScreenPick(QWidget* dialog, ScreenAnswer answer) : dialog_(dialog), answer_(std::move(answer)) {
        portal_.emplace(nameForPortal(), [this](PortalColour::End how, std::optional<Colour> colour) {
            portalAnswered(how, colour);
        });
    }

  private:
    QString nameForPortal() const {
        const bool named = dialog_ && QGuiApplication::platformName() == "xcb";
        return named ? "x11:" + QString::number(dialog_->winId(), 16) : QString();
    }

    void portalAnswered(PortalColour::End how, const std::optional<Colour>& colour) {
        using End = PortalColour::End;
        if (how == End::failed && canReadScreens()) {
            portal_.reset(); // an answer that comes later is none
            x11_.emplace(dialog_, answer_);
            return;
        }
        ScreenColours colours;
        if (colour) colours.colours.push_back(*colour);
        if (how == End::failed)
            colours.problem = translated(
                "On Wayland only the desktop picks colors from the screen, and it does not answer");
        const ScreenAnswer answer = answer_; // which may destroy this
        answer(std::move(colours));
    }

    static bool canReadScreens() {
        return QGuiApplication::platformName() == "xcb" && !XPointer().showsOnWayland();
    }

    const QPointer<QWidget> dialog_;
    const ScreenAnswer answer_;
    std::optional<PortalColour> portal_;
    std::optional<X11Pick> x11_;
};

} // namespace

std::unique_ptr<ScreenPick> beginScreenPick(QWidget* dialog, ScreenAnswer answer) {
    const QString platform = QGuiApplication::platformName();
    if (platform == "xcb" || platform.startsWith("wayland"))
        return std::make_unique<LinuxScreenPick>(dialog, std::move(answer));
    answer({{}, translated("There is no screen to pick from: the platform is %1", platform.toStdString())});
    return nullptr;
}

} // namespace chromalog
