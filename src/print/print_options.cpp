#include "print/print_options.h"

namespace chromalog {

void PrintOptions::setPrintAttributes(std::int16_t which, std::uint8_t flag) {
    switch (which) {
    case 0:
        printName = flag;
        break;
    case 1:
        printRGB = flag;
        break;
    case 2:
        printCMYK = flag;
        break;
    default:
        break;
    }
}

} // namespace chromalog
