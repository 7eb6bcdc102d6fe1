#pragma once

#include <QApplication>

#include <memory>
#include <string>

namespace chromalog {

/// Whether the toolkit can start here. Without a screen its application object would abort the host's
/// process, so this is asked first, and kept until the application stands: an X server that its last client
/// leaves may start anew, and would turn away the toolkit that comes right after the question.
class DisplayProbe {
  public:
    DisplayProbe();
    ~DisplayProbe();
    DisplayProbe(const DisplayProbe&) = delete;
    DisplayProbe& operator=(const DisplayProbe&) = delete;

    bool available() const { return available_; }

  private:
    struct XConnection;
    bool windowSystemAnswers(const QString& platform); ///< "xcb" or Wayland

    std::unique_ptr<XConnection> x_;
    bool available_ = false;
};

/// Makes the toolkit's application object where the process has none, for the length of a pick. Owned by a
/// static it would crash at exit; made anew for every pick it works. The locale and the messages' handler are
/// left as they were found.
class ApplicationGuard {
  public:
    /// Where the host calls back at the end of its run, the application is kept until then, for the picks to
    /// come; what others see of it (windows, the clipboard) ends with the guard all the same, but for the
    /// colour that OK returned (returned_colour.h).
    explicit ApplicationGuard(void (*atEnd)(void (*putAway)()) = nullptr);
    ~ApplicationGuard();
    ApplicationGuard(const ApplicationGuard&) = delete;
    ApplicationGuard& operator=(const ApplicationGuard&) = delete;
    bool owns() const { return own_ != nullptr; }

  private:
    std::string locale_; ///< of all categories, before
    bool keep_;          ///< for the next guard
    std::unique_ptr<QApplication> own_;
};

} // namespace chromalog
