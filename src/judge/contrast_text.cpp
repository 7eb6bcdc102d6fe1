#include "judge/contrast_text.h"

#include "base/number_text.h"
#include "base/translated.h"

#include <cmath>

namespace chromalog {

std::string ratioText(double ratio) {
    double hundredths = std::round(ratio * 100);
    if (hundredths / 100 > ratio)
        --hundredths; // by the quotient: the product of 1.13 and 100 is less than 113
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
    return translated("below AA");
}

} // namespace chromalog
