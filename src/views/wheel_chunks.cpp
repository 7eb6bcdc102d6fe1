#include "views/wheel_chunks.h"

#include <array>
#include <iterator>

// One clone of the loop for each width of vectors, chosen when the module is loaded; elsewhere the plain
// loop. The sanitizers start up too late for that choice.
#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && defined(__gnu_linux__) &&             \
    !defined(__SANITIZE_ADDRESS__)
#define CHROMALOG_PER_CPU __attribute__((target_clones("avx512f", "avx2", "default")))
#else
#define CHROMALOG_PER_CPU
#endif

// A chunk and its mirror are the same pixels or do not touch: the loop over both is free of dependences.
#if defined(__GNUC__) && !defined(__clang__)
#define CHROMALOG_SAME_OR_APART _Pragma("GCC ivdep")
#else
#define CHROMALOG_SAME_OR_APART
#endif

namespace chromalog {
namespace {

constexpr int highestByte = 16;
constexpr int toHighest = highestByte - BrightnessScale::fractionBits;

/// A channel order as shifts and masks, at one brightness.
struct Placement {
    std::uint32_t top, middleMask, lowMask;
    int middleDown, lowDown;
};

using Placements = std::array<Placement, std::size(channelOrders)>;

Placements placementsAt(std::uint32_t topByte) {
    Placements placements;
    for (std::size_t i = 0; i < placements.size(); ++i) {
        const ChannelOrder& o = channelOrders[i];
        placements[i] = {0xFF000000u | topByte * o.top, 0xFFu << o.middle, 0xFFu << o.low,
                         highestByte - o.middle, highestByte - o.low};
    }
    return placements;
}

} // namespace

CHROMALOG_PER_CPU
std::size_t fillWheelChunks(const WheelChunk* chunks, const float* factors, std::size_t group,
                            std::size_t groups, std::uint32_t* picture, const BrightnessScale& scale) {
    const BrightnessScale s = scale; // copies, which writing the picture cannot change
    const Placements placements = placementsAt(s.top);
    for (; group < groups; ++group) {
        std::uint32_t whole[chunkPixels] = {};
        const WheelChunk* chunk = chunks + group * groupChunks;
        const float* middle = factors + group * groupChunks * chunkFactors;
        for (int c = 0; c < groupChunks; ++c, ++chunk, middle += chunkFactors) {
            const float* low = middle + chunkPixels;
            const Placement& p = placements[chunk->order];
            const Placement& q = placements[mirroredOrder(chunk->order)];
            const std::uint32_t top = p.top, middleMask = p.middleMask, lowMask = p.lowMask;
            const int middleDown = p.middleDown, lowDown = p.lowDown;
            const std::uint32_t mirrorTop = q.top, mirrorMiddleMask = q.middleMask, mirrorLowMask = q.lowMask;
            const int mirrorMiddleDown = q.middleDown, mirrorLowDown = q.lowDown;
            std::uint32_t* out = picture + chunk->first;
            std::uint32_t* mirror = picture + chunk->mirror;
            CHROMALOG_SAME_OR_APART
            for (int i = 0; i < chunkPixels; ++i) {
                const std::uint32_t fixedMiddle = s.fixed(middle[i]);
                const std::uint32_t fixedLow = s.fixed(low[i]);
                whole[i] |= BrightnessScale::wholeBit(fixedMiddle) | BrightnessScale::wholeBit(fixedLow);
                const std::uint32_t m = fixedMiddle << toHighest;
                const std::uint32_t l = fixedLow << toHighest;
                out[i] = top | (m >> middleDown & middleMask) | (l >> lowDown & lowMask);
                mirror[i] = mirrorTop | (m >> mirrorMiddleDown & mirrorMiddleMask) |
                            (l >> mirrorLowDown & mirrorLowMask);
            }
        }
        std::uint32_t any = 0;
        for (int i = 0; i < chunkPixels; ++i)
            any |= whole[i];
        if (any >> (BrightnessScale::fractionBits - 1) & 1) break;
    }
    return group;
}

} // namespace chromalog
