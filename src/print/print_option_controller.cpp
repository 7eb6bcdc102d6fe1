#include "print/print_option_controller.h"

namespace chromalog {

PrintOptionController::PrintOptionController(PrintOptions& options, Desktop& desktop)
    : options_(options), desktop_(desktop) {
    form_ = desktop_.loadForm("SwatchPrintOptions", owner());
    if (!form_) desktop_.log("failed to load SwatchPrintOptions xib");
    printOptionWindow->whenClosed([this] { ok(); });
    buttonMatrix->selectRow(options_.printSize);
    NameCheck->setState(options_.printName);
    RGBCheck->setState(options_.printRGB);
    CMYKCheck->setState(options_.printCMYK);
    desktop_.log("Done with init variantecontroler");
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
             {"ok:", [this] { ok(); }},
             {"cancelPrint:", [this] { cancel(); }}}};
}

std::int64_t PrintOptionController::showVarianteWindow() {
    if (!printOptionWindow.connected()) return 0;
    const std::int64_t code = desktop_.runModal(*printOptionWindow);
    printOptionWindow->orderOut();
    return code;
}

void PrintOptionController::chooseSize() {
    const std::string title = buttonMatrix->selectedTitle();
    for (std::int16_t size = 0; const PrintSize& known : kPrintSizes) {
        if (title == known.title) options_.printSize = size;
        ++size;
    }
}

void PrintOptionController::putName() {
    options_.setPrintAttributes(0, NameCheck->state() == 1);
}
void PrintOptionController::putRGB() {
    options_.setPrintAttributes(1, RGBCheck->state() == 1);
}
void PrintOptionController::putCMYK() {
    options_.setPrintAttributes(2, CMYKCheck->state() == 1);
}

void PrintOptionController::cancel() {
    cancelled_ = true;
    desktop_.stopModal(0);
}

void PrintOptionController::ok() {
    desktop_.stopModal(1);
}

} // namespace chromalog
