#include "judge/contrast_text.h"

#include "base/number_text.h"

#include <cmath>

namespace chromalog {

std::string ratioText(double ratio) {
    double hundredths = std::floor(ratio * 100);
    if (hundredths / 100 > ratio) --hundredths; // the product was rounded up
    return fixedText(hundredths / 100, 2) + ":1";
}

std::string levelText(double ratio, TextSize size) {
    switch (contrastLevel(ratio, size)) {
    case ContrastLevel::aaa:
        return "AAA";
    case ContrastLevel::aa:
        return "AA";
    case ContrastLevel::fails:
        break;
    }
    return "below AA";
}

} // namespace chromalog
