#pragma once

#include "dialog/pick.h"
#include "qt/application_guard.h"
#include "qt/driven_dialog.h"
#include "qt/form_reading.h"

#include <memory>

namespace chromalog {

/// Where a pick runs for people: makes the toolkit's desktop, with the options of the stand-alone host or of
/// the environment, and lets scripts attach. One per call of the host.
class QtPlatform : public Platform {
  public:
    QtPlatform(AttachDriven attach, ReadForm readForm) : attach_(attach), readForm_(readForm) {}

    void staysLoaded(AtEnd atEnd) override { atEnd_ = atEnd; }
    std::unique_ptr<Desktop> makeDesktop(const StandaloneSuite*) override;
    void dialogReady(Desktop&, ChromalogControler&) override;
    ScreenColours pickFromScreen() override;
    void log(std::string_view line) override; ///< also on standard error

  private:
    const AttachDriven attach_;
    const ReadForm readForm_;
    AtEnd atEnd_ = nullptr;
    std::unique_ptr<ApplicationGuard> application_; ///< outlives the desktop that makeDesktop gave away
    const StandaloneSuite* standalone_ = nullptr;
    std::unique_ptr<DrivenDialog> dialog_; ///< for what drives it
    std::unique_ptr<Driven> driven_;       ///< a script, or what the options ask of the dialog
};

} // namespace chromalog
