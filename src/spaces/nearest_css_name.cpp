#include "spaces/nearest_css_name.h"

#include "base/css_names.h"
#include "spaces/ciede2000.h"

#include <array>
#include <limits>

namespace chromalog {
namespace {

using NamedLabs = std::array<Lab, std::size(kCssColours)>;

NamedLabs namedLabs() {
    NamedLabs labs;
    for (std::size_t i = 0; i < labs.size(); ++i)
        labs[i] = labOf(rgbOfBytes(kCssColours[i].rgb));
    return labs;
}

} // namespace

std::string_view nearestCssName(const Lab& lab) {
    static const NamedLabs labs = namedLabs();
    double least = std::numeric_limits<double>::infinity();
    std::size_t nearest = 0;
    for (std::size_t i = 0; i < labs.size(); ++i) {
        const double difference = ciede2000(lab, labs[i]);
        if (difference >= least) continue;
        least = difference;
        nearest = i;
    }
    return kCssColours[nearest].name;
}

std::string_view nearestCssName(const Rgb& rgb) {
    return nearestCssName(labOf(rgb));
}

} // namespace chromalog
