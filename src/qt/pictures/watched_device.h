#pragma once

#include "desktop/picture_reading.h"

#include <QIODevice>

namespace chromalog {

/// Bytes that a picture is decoded from. Every read tells how far it is and asks whether to go on: a decoder
/// that is told to end finds nothing more to read.
class WatchedDevice : public QIODevice {
  public:
    /// Copies up to `count` bytes from there on; fewer at the end, below 0 where they cannot be read.
    using ReadAt = std::function<qint64(char* into, qint64 count, qint64 offset)>;

    WatchedDevice(qint64 size, ReadAt, const WorkProgress&, double wholePart);

    void startAnew() { furthest_ = 0; } ///< the progress: what was read so far was but a look

    bool stopped() const { return stopped_; } ///< the progress said no
    bool failed() const { return failed_; }   ///< bytes could not be read
    bool ranOut() const { return ranOut_; }   ///< somebody read on at the end

    qint64 size() const override { return size_; }
    bool isSequential() const override { return false; }

  protected:
    qint64 readData(char* into, qint64 count) override;
    qint64 writeData(const char*, qint64) override { return -1; }

  private:
    const qint64 size_;
    const ReadAt readAt_;
    const WorkProgress& progress_;
    const double wholePart_; ///< of the progress, when all is read
    qint64 furthest_ = 0;
    bool stopped_ = false, failed_ = false, ranOut_ = false;
};

} // namespace chromalog
