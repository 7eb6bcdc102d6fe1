#pragma once

#include "base/colour.h"

#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace chromalog {

/// One colour by the desktop's own picker, which its portal offers on the session bus (interface
/// org.freedesktop.portal.Screenshot, from version 2 on). Destroying it closes the desktop's picker, and
/// nothing is answered any more.
class PortalColour {
  public:
    enum class End {
        picked,
        takenBack, ///< by the person
        failed     ///< there is none, it is too old or silent, or what it answers is no colour
    };
    /// Answers once, from the event loop, with a colour where it was picked. It may destroy the object.
    using Answer = std::function<void(End, std::optional<Colour>)>;

    /// How long the portal may take to say what it is, and then to begin; the person takes any time.
    static constexpr std::chrono::milliseconds kPatience{2000};

    /// `parent` names the window that the desktop's picker belongs to, as portals want it; may be empty.
    PortalColour(const QString& parent, Answer, std::chrono::milliseconds patience = kPatience);
    ~PortalColour();

  private:
    class Request;
    std::unique_ptr<Request> request_;
};

} // namespace chromalog
