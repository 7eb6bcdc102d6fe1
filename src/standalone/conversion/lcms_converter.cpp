#include "standalone/conversion/lcms_converter.h"

#include "standalone/conversion/closed_converter.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <lcms2.h>
#include <map>
#include <stdexcept>

namespace chromalog::standalone {

namespace {

using Profile = std::unique_ptr<void, decltype(&cmsCloseProfile)>;
using Transform = std::unique_ptr<void, decltype(&cmsDeleteTransform)>;

/// How a space's 8-bit slots lie in Little CMS's doubles: value = slot * scale + offset.
struct Coding {
    cmsUInt32Number type;
    int channels;
    std::array<double, 4> scale, offset;
};

Coding codingOf(Space space) {
    constexpr double kUnit = 1 / 255.0, kPercent = 100 / 255.0;
    switch (space) {
    case Space::cmyk: // percent of ink, 255 = none
        return {TYPE_CMYK_DBL, 4, {-kPercent, -kPercent, -kPercent, -kPercent}, {100, 100, 100, 100}};
    case Space::lab:
        return {TYPE_Lab_DBL, 3, {kPercent, 1, 1}, {0, -128, -128}};
    case Space::xyz:
        return {TYPE_XYZ_DBL, 3, {kUnit, kUnit, kUnit}, {}};
    case Space::gray:
        return {TYPE_GRAY_DBL, 1, {kUnit}, {}};
    default:
        return {TYPE_RGB_DBL, 3, {kUnit, kUnit, kUnit}, {}};
    }
}

/// RGB and CMYK go as bytes between each other, as image editors convert pixels; all other pairs as doubles.
bool worksInBytes(Space from, Space to) {
    return (from == Space::rgb && to == Space::cmyk) || (from == Space::cmyk && to == Space::rgb);
}

cmsUInt32Number byteTypeOf(Space space) {
    return space == Space::cmyk ? TYPE_CMYK_8_REV : TYPE_RGB_8;
}

Components convertBytes(cmsHTRANSFORM transform, const Components& in) {
    std::array<std::uint8_t, 4> bytes{}, answer{};
    std::copy(in.begin(), in.end(), bytes.begin());
    cmsDoTransform(transform, bytes.data(), answer.data(), 1);
    return {answer[0], answer[1], answer[2], answer[3]};
}

Components convertDoubles(cmsHTRANSFORM transform, const Coding& source, const Coding& result,
                          const Components& in) {
    std::array<double, 4> values{}, answer{};
    for (int i = 0; i < source.channels; ++i)
        values[i] = in[i] * source.scale[i] + source.offset[i];
    cmsDoTransform(transform, values.data(), answer.data(), 1);
    Components out{};
    for (int i = 0; i < result.channels; ++i) {
        const double slot = (answer[i] - result.offset[i]) / result.scale[i];
        out[i] = static_cast<std::int16_t>(std::lround(std::clamp(slot, 0.0, 255.0)));
    }
    return out;
}

cmsHPROFILE makeGray() {
    const cmsFloat64Number sRgbCurve[]{2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045};
    cmsToneCurve* curve = cmsBuildParametricToneCurve(nullptr, 4, sRgbCurve);
    cmsHPROFILE profile = cmsCreateGrayProfile(cmsD50_xyY(), curve);
    cmsFreeToneCurve(curve);
    return profile;
}

std::string complaint; ///< the library's last one while somebody listens

/// Listens to the library for as long as this lives.
struct Listening {
    Listening() {
        cmsSetLogErrorHandler([](cmsContext, cmsUInt32Number, const char* text) { complaint = text; });
    }
    ~Listening() {
        cmsSetLogErrorHandler(nullptr);
        complaint.clear();
    }
};

std::runtime_error failure(const std::string& what) {
    return std::runtime_error(complaint.empty() ? what : what + ": " + complaint);
}

Profile openCmyk(const std::string& path) {
    const std::string cannotRead = "cannot read a colour profile from " + path;
    std::FILE* const file = std::fopen(path.c_str(), "rb");
    if (!file) throw std::runtime_error(cannotRead + ": " + std::strerror(errno));
    Profile profile(cmsOpenProfileFromStream(file, "r"), cmsCloseProfile); // owns the file from here on
    if (!profile) throw failure(cannotRead);
    if (cmsGetColorSpace(profile.get()) != cmsSigCmykData)
        throw std::runtime_error(path + " is no CMYK profile");
    if (!cmsIsIntentSupported(profile.get(), INTENT_RELATIVE_COLORIMETRIC, LCMS_USED_AS_OUTPUT))
        throw std::runtime_error(path + " cannot be converted to: it is damaged, or no profile for printing");
    return profile;
}

} // namespace

struct LcmsConverter::Transforms {
    std::map<Space, Profile> profiles;
    std::map<std::pair<Space, Space>, Transform> made;

    cmsHTRANSFORM get(Space from, Space to) {
        const auto found = made.find({from, to});
        if (found != made.end()) return found->second.get();
        return make(from, profiles.at(from).get(), to, profiles.at(to).get());
    }

    cmsHTRANSFORM make(Space from, cmsHPROFILE source, Space to, cmsHPROFILE target) {
        const bool bytes = worksInBytes(from, to);
        // Not optimised: single colours do not pay for the table of grid points, which takes long to make
        // and moves most colours by some units.
        constexpr cmsUInt32Number flags =
            cmsFLAGS_BLACKPOINTCOMPENSATION | cmsFLAGS_NOOPTIMIZE | cmsFLAGS_NOCACHE;
        cmsHTRANSFORM transform = cmsCreateTransform(source, bytes ? byteTypeOf(from) : codingOf(from).type,
                                                     target, bytes ? byteTypeOf(to) : codingOf(to).type,
                                                     INTENT_RELATIVE_COLORIMETRIC, flags);
        if (!transform) throw failure("the colour profiles cannot be connected");
        made.emplace(std::pair{from, to}, Transform(transform, cmsDeleteTransform));
        return transform;
    }
};

/// A profile that cannot serve is refused here, not in a pick. Of the two ways through it the one to ink is
/// made, which every pick wants at once, and of the other its table is read. An open profile keeps every
/// table that was read through it, beside the copy that the transform has: the way to ink, whose table is by
/// far the largest, has an opening of its own.
LcmsConverter::LcmsConverter(const std::string& cmykProfile) : transforms_(std::make_unique<Transforms>()) {
    const Listening listening;
    auto& profiles = transforms_->profiles;
    profiles.emplace(Space::rgb, Profile(cmsCreate_sRGBProfile(), cmsCloseProfile));
    profiles.emplace(Space::lab, Profile(cmsCreateLab4Profile(nullptr), cmsCloseProfile));
    profiles.emplace(Space::xyz, Profile(cmsCreateXYZProfile(), cmsCloseProfile));
    profiles.emplace(Space::gray, Profile(makeGray(), cmsCloseProfile));
    if (cmykProfile.empty()) return;
    Profile cmyk = openCmyk(cmykProfile);
    if (!cmsReadTag(cmyk.get(), cmsIsTag(cmyk.get(), cmsSigAToB1Tag) ? cmsSigAToB1Tag : cmsSigAToB0Tag))
        throw failure(cmykProfile + " cannot be converted from: it is damaged, or no profile for printing");
    transforms_->make(Space::rgb, profiles.at(Space::rgb).get(), Space::cmyk, openCmyk(cmykProfile).get());
    profiles.emplace(Space::cmyk, std::move(cmyk));
}

LcmsConverter::~LcmsConverter() = default;

Components LcmsConverter::convert(Space from, Space to, const Components& components) const {
    if (from == to) return components;
    const auto& profiles = transforms_->profiles;
    if (!profiles.contains(from)) return convert(Space::rgb, to, closedToRgb(from, components));
    if (!profiles.contains(to)) return closedFromRgb(to, convert(from, Space::rgb, components));

    const Components in = clamped(from, components);
    cmsHTRANSFORM transform = nullptr;
    try {
        transform = transforms_->get(from, to);
    } catch (const std::runtime_error&) { // the disk fails where a CMYK profile lies
        if (from == Space::cmyk && to == Space::rgb) return closedToRgb(from, in);
        if (from != Space::cmyk && to != Space::cmyk) throw;
        return convert(Space::rgb, to, convert(from, Space::rgb, components));
    }
    return worksInBytes(from, to) ? convertBytes(transform, in)
                                  : convertDoubles(transform, codingOf(from), codingOf(to), in);
}

std::string LcmsConverter::installedCmykProfile() {
    // As the package libgs-common and Homebrew's ghostscript install it.
    for (const char* path : {"/usr/share/color/icc/ghostscript/default_cmyk.icc",
                             "/opt/homebrew/share/ghostscript/iccprofiles/default_cmyk.icc",
                             "/usr/local/share/ghostscript/iccprofiles/default_cmyk.icc"}) {
        std::error_code ignored;
        if (std::filesystem::is_regular_file(path, ignored)) return path;
    }
    return {};
}

} // namespace chromalog::standalone
