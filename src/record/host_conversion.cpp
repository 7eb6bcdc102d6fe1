#include "record/host_conversion.h"

namespace chromalog {

bool HostColorServicesAvailable(ColorServicesProc callback) {
    return callback != nullptr;
}

std::int16_t CSSetColor(std::int16_t* components, std::int16_t c0, std::int16_t c1, std::int16_t c2,
                        std::int16_t c3) {
    if (!components) return kBadParameter;
    components[0] = c0;
    components[1] = c1;
    components[2] = c2;
    components[3] = c3;
    return 0;
}

std::int16_t CSCopyColor(std::int16_t* to, const std::int16_t* from) {
    if (!to || !from) return kBadParameter;
    return CSSetColor(to, from[0], from[1], from[2], from[3]);
}

std::int16_t CSInitInfo(ColorServicesInfo* info) {
    if (!info) return kBadParameter;
    *info = ColorServicesInfo{};
    info->infoSize = sizeof(ColorServicesInfo);
    info->selector = plugIncolorServicesConvertColor;
    info->sourceSpace = plugIncolorServicesRGBSpace;
    info->resultSpace = plugIncolorServicesChosenSpace;
    return 0;
}

std::int16_t HostCSConvertColor(ColorServicesProc callback, std::int16_t sourceSpace,
                                std::int16_t resultSpace, std::int16_t* components) {
    std::optional<bool> inGamut;
    return HostCSConvertColor(callback, sourceSpace, resultSpace, components, inGamut);
}

std::int16_t HostCSConvertColor(ColorServicesProc callback, std::int16_t sourceSpace,
                                std::int16_t resultSpace, std::int16_t* components,
                                std::optional<bool>& inGamut) {
    inGamut.reset();
    if (!HostColorServicesAvailable(callback)) return kHostInsufficient;
    if (!components) return kBadParameter;
    ColorServicesInfo info;
    CSInitInfo(&info);
    CSCopyColor(info.colorComponents, components);
    info.sourceSpace = sourceSpace;
    info.resultSpace = resultSpace;
    if (const std::int16_t error = callback(&info)) return error;
    if (info.resultGamutInfoValid != 0) inGamut = info.resultInGamut != 0;
    return CSCopyColor(components, info.colorComponents);
}

} // namespace chromalog
