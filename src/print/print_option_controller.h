#pragma once

#include "desktop/desktop.h"
#include "print/print_options.h"

#include <cstdint>
#include <memory>

namespace chromalog {

/// The print options dialog, a fresh one for every print. Each change is written through at once.
class PrintOptionController {
  public:
    static PrintOptionController* printOptionController(); ///< the shared pointer; nothing sets it

    PrintOptionController(PrintOptions&, Desktop&);

    std::int64_t showVarianteWindow(); ///< the modal code; 0 where there is no dialog
    void chooseSize();
    void putName();
    void putRGB();
    void putCMYK();
    void ok();
    void cancel(); ///< ends the dialog, and the print action with it; every other end prints
    bool cancelled() const { return cancelled_; }

  private:
    FormOwner owner();

    PrintOptions& options_;
    Desktop& desktop_;
    Outlet<Window> printOptionWindow;
    Outlet<RadioMatrix> buttonMatrix;
    Outlet<Button> RGBCheck, CMYKCheck, NameCheck;
    bool cancelled_ = false;
    std::unique_ptr<Form> form_; ///< after the outlets: its controls go first
};

} // namespace chromalog
