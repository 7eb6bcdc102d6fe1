#include "qt/system_sound.h"

#include "qt/convert.h"

#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>

namespace chromalog {

/// The freedesktop sound theme, played by the sound server's own player: the toolkit's multimedia is too much
/// for a beep.
void playSystemSound(std::string_view name) {
    const QString file = QStandardPaths::locate(QStandardPaths::GenericDataLocation,
                                                "sounds/freedesktop/stereo/" + toQt(name).toLower() + ".oga");
    const QString player = QStandardPaths::findExecutable("paplay");
    if (!file.isEmpty() && !player.isEmpty()) QProcess::startDetached(player, {file});
}

} // namespace chromalog
