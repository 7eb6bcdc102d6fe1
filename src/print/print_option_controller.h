#pragma once

#include "desktop/desktop.h"

#include <cstdint>
#include <memory>

namespace chromalog {

/// What the print options dialog asks of the main controller, which holds the options.
class PrintOptionDesk {
  public:
    virtual ~PrintOptionDesk() = default;
    virtual Desktop& desktop() = 0;
    virtual void setSwatchPrintsize(std::int16_t size) = 0;
    virtual void setPrintAttributes(std::int16_t which, std::uint8_t flag) = 0;
    virtual std::uint8_t isNameToPrint() const = 0;
    virtual std::uint8_t isRGBToPrint() const = 0;
    virtual std::uint8_t isCMYKToPrint() const = 0;
    virtual std::int16_t getMyPrintSize() const = 0;
};

/// The print options dialog, a fresh one for every print. Each change is written through at once.
class PrintOptionController {
  public:
    static PrintOptionController* printOptionController(); ///< the shared pointer; nothing sets it

    explicit PrintOptionController(PrintOptionDesk& desk);

    std::int64_t showVarianteWindow(); ///< the modal code; 0 where there is no dialog
    void chooseSize();
    void putName();
    void putRGB();
    void putCMYK();
    void ok();

  private:
    FormOwner owner();

    PrintOptionDesk& desk_;
    Outlet<Window> printOptionWindow;
    Outlet<RadioMatrix> buttonMatrix;
    Outlet<Button> RGBCheck, CMYKCheck, NameCheck;
    std::unique_ptr<Form> form_; ///< after the outlets: its controls go first
};

} // namespace chromalog
