#pragma once

#include <QPoint>

#include <memory>
#include <optional>

class QWindow;

namespace chromalog {

/// The pointer as the X server has it, in device pixels: the toolkit would round them to points.
class XPointer {
  public:
    XPointer();
    ~XPointer();
    XPointer(const XPointer&) = delete;
    XPointer& operator=(const XPointer&) = delete;

    std::optional<QPoint> place(const QWindow& onTheSameScreen) const; ///< nothing where the server is not X
    void moveTo(QPoint, const QWindow& onTheSameScreen) const;
    bool
    showsOnWayland() const; ///< the server shows its own windows alone, and not what else is on the screen

  private:
    struct Library;
    std::unique_ptr<Library> library_;
};

} // namespace chromalog
