#include "qt/screen_devices.h"

#include <QStringList>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace chromalog {
namespace {

// Major numbers of device files.
constexpr unsigned kFramebuffer = 29;
constexpr unsigned kGraphicsCard = 226;

bool opensAs(unsigned kind, const QString& path) {
    const int fd = ::open(path.toLocal8Bit().constData(), O_RDWR | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (fd < 0) return false;
    struct stat status;
    const bool is = ::fstat(fd, &status) == 0 && S_ISCHR(status.st_mode) && major(status.st_rdev) == kind;
    ::close(fd);
    return is;
}

bool hasFramebuffer(const QString& entry) {
    for (const QString& option : entry.split(':'))
        if (option.startsWith("fb=")) return opensAs(kFramebuffer, option.mid(3));
    return opensAs(kFramebuffer, "/dev/fb0") || opensAs(kFramebuffer, "/dev/graphics/fb0");
}

bool hasGraphicsCard() {
    constexpr int mostCards = 16;
    for (int card = 0; card < mostCards; ++card)
        if (opensAs(kGraphicsCard, "/dev/dri/card" + QString::number(card))) return true;
    return false;
}

} // namespace

bool hasScreenDevice(const QString& entry) {
    const QString platform = entry.section(':', 0, 0).toLower();
    if (platform == "linuxfb" && qEnvironmentVariableIntValue("QT_QPA_FB_DRM") == 0)
        return hasFramebuffer(entry);
    if (platform == "linuxfb" || platform == "eglfs" || platform == "minimalegl") return hasGraphicsCard();
    return platform != "vkkhrdisplay"; // shows no widgets, whatever it finds
}

} // namespace chromalog
