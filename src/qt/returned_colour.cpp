#include "qt/returned_colour.h"

#include "base/colour_text.h"
#include "qt/convert.h"

#include <QClipboard>
#include <QColor>
#include <QEventLoop>
#include <QGuiApplication>
#include <QMimeData>

#include <cstdlib>
#include <memory>
#include <unistd.h>

namespace chromalog {
namespace {

bool copied = false;
bool holds = false; ///< the loop that waits runs

/// Others keep what is copied themselves, or share no clipboard with other programs.
bool systemAsksBack() {
    const QString platform = QGuiApplication::platformName();
    return platform == "xcb" || platform.startsWith("wayland");
}

/// The toolkit ends the process by exit() where the window system has gone, with all of itself still
/// standing. The colour was printed before.
void endAtOnce() {
    if (holds) _exit(0);
}

} // namespace

void ReturnedColour::copy(const Colour& colour) {
    const RgbChannels rgb = channelsOf(colour);
    auto mime = std::make_unique<QMimeData>(); // the toolkit's own: it outlives the dialog
    mime->setColorData(QColor::fromRgba64(rgb[0], rgb[1], rgb[2]));
    mime->setText(toQt(hexText(rgb)));
    QGuiApplication::clipboard()->setMimeData(mime.release());
    copied = true;
}

bool ReturnedColour::isHeld() {
    return copied && systemAsksBack() && QGuiApplication::clipboard()->ownsClipboard();
}

void ReturnedColour::holdToItsEnd() {
    if (isHeld()) {
        const QtMessageHandler before =
            qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        holds = true;
        std::atexit(endAtOnce);
        QEventLoop loop;
        const QClipboard* clipboard = QGuiApplication::clipboard();
        QObject::connect(clipboard, &QClipboard::dataChanged, &loop, [&loop, clipboard] {
            if (!clipboard->ownsClipboard()) loop.quit();
        });
        loop.exec();
        holds = false;
        qInstallMessageHandler(before);
    }
    copied = false;
}

} // namespace chromalog
