#include "standalone/colour_services.h"

#include "abi/result_codes.h"

#include <algorithm>

namespace chromalog::standalone {

namespace {
bool isSpace(std::int16_t code) {
    return code >= plugIncolorServicesRGBSpace && code <= plugIncolorServicesXYZSpace;
}
} // namespace

std::int16_t ColourServices::call(ColorServicesInfo* info) const {
    ledger_.count("colorServices");
    const auto refuse = [this](const char* what) {
        ledger_.misuse("colorServices", what);
        return static_cast<std::int16_t>(hostParamErr);
    };
    if (!info) return refuse("null argument block");
    if (info->infoSize != static_cast<std::int32_t>(sizeof(ColorServicesInfo)))
        return refuse("infoSize is not the block's size");
    if (info->reservedSourceSpaceInfo || info->reservedResultSpaceInfo || info->reserved)
        return refuse("a reserved pointer is not null");
    if (failing_) return hostParamErr;
    // Not mistakes: colours from files may name any space, and this host has no colour chooser of its own.
    if (info->selector != plugIncolorServicesConvertColor) return hostParamErr;
    if (!isSpace(info->sourceSpace) || !isSpace(info->resultSpace)) return hostParamErr;

    Components components;
    std::copy_n(info->colorComponents, 4, components.begin());
    components = converter_->convert(Space{info->sourceSpace}, Space{info->resultSpace}, components);
    std::copy_n(components.begin(), 4, info->colorComponents);
    info->resultGamutInfoValid = 0;
    return hostNoErr;
}

} // namespace chromalog::standalone
