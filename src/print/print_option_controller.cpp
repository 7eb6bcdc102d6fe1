#include "print/print_option_controller.h"

#include "host/globals.h"
#include "print/print_options.h"

namespace chromalog {

PrintOptionController* PrintOptionController::printOptionController() {
    return gPrintOptionController;
}

PrintOptionController::PrintOptionController(PrintOptionDesk& desk) : desk_(desk) {
    form_ = desk_.desktop().loadForm("SwatchPrintOptions", owner());
    if (!form_) desk_.desktop().log("failed to load SwatchPrintOptions xib");
    printOptionWindow->onClose = [this] { ok(); };
    buttonMatrix->selectRow(desk_.getMyPrintSize());
    NameCheck->setState(desk_.isNameToPrint());
    RGBCheck->setState(desk_.isRGBToPrint());
    CMYKCheck->setState(desk_.isCMYKToPrint());
    desk_.desktop().log("Done with init variantecontroler");
}

FormOwner PrintOptionController::owner() {
    return {{{"printOptionWindow", &printOptionWindow},
             {"buttonMatrix", &buttonMatrix},
             {"RGBCheck", &RGBCheck},
             {"CMYKCheck", &CMYKCheck},
             {"NameCheck", &NameCheck}},
            {{"chooseSize:", [this] { chooseSize(); }},
             {"putName:", [this] { putName(); }},
             {"putRGB:", [this] { putRGB(); }},
             {"putCMYK:", [this] { putCMYK(); }},
             {"ok:", [this] { ok(); }}}};
}

std::int64_t PrintOptionController::showVarianteWindow() {
    if (!printOptionWindow.connected()) return 0;
    const std::int64_t code = desk_.desktop().runModal(*printOptionWindow);
    printOptionWindow->orderOut();
    return code;
}

void PrintOptionController::chooseSize() {
    const std::string title = buttonMatrix->selectedTitle();
    for (std::int16_t size = 0; const PrintSize& known : kPrintSizes) {
        if (title == known.title) desk_.setSwatchPrintsize(size);
        ++size;
    }
}

void PrintOptionController::putName() {
    desk_.setPrintAttributes(0, NameCheck->state() == 1);
}
void PrintOptionController::putRGB() {
    desk_.setPrintAttributes(1, RGBCheck->state() == 1);
}
void PrintOptionController::putCMYK() {
    desk_.setPrintAttributes(2, CMYKCheck->state() == 1);
}

void PrintOptionController::ok() {
    desk_.desktop().stopModal(1);
}

} // namespace chromalog
