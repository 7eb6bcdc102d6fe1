#pragma once

#include <string>
#include <sys/types.h>

namespace chromalog::test {

/// A virtual X server on a display of its own, large enough for the dialog and a window beside it; ends with
/// the object.
class XServer {
  public:
    /// What the server does when its last client goes: by default most servers forget everything.
    enum class WhenAlone { stays, startsAnew };

    /// `screen` as the server takes it: the dialog is laid out to fit.
    explicit XServer(WhenAlone = WhenAlone::stays, const char* screen = "1800x1000x24");
    ~XServer();
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;

    bool runs() const { return !display_.empty(); }
    const std::string& display() const { return display_; } ///< as DISPLAY wants it

  private:
    pid_t process_ = -1;
    std::string display_;
};

} // namespace chromalog::test
