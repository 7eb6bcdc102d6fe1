#include "qt/pictures/watched_device.h"

#include <algorithm>

namespace chromalog {

WatchedDevice::WatchedDevice(qint64 size, ReadAt readAt, const WorkProgress& progress, double wholePart)
    : size_(size), readAt_(std::move(readAt)), progress_(progress), wholePart_(wholePart) {
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 WatchedDevice::readData(char* into, qint64 count) {
    if (stopped_) return -1;
    const qint64 most = std::clamp<qint64>(size_ - pos(), 0, count);
    const qint64 got = most > 0 ? readAt_(into, most, pos()) : 0;
    failed_ = failed_ || got < 0;
    ranOut_ = ranOut_ || (count > 0 && got == 0); // at the end, or the file became shorter
    furthest_ = std::max(furthest_, pos() + std::max<qint64>(got, 0));
    const double part = static_cast<double>(furthest_) / static_cast<double>(std::max<qint64>(size_, 1));
    stopped_ = progress_ && !progress_(wholePart_ * std::min(part, 1.0));
    return stopped_ ? -1 : got;
}

} // namespace chromalog
