#include "views/wheel_blocks.h"

#include <algorithm>

// One clone of the loop for each width of vectors, chosen when the module is loaded. The sanitizers' start-up
// comes too late for that choice.
#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && defined(__gnu_linux__) &&             \
    !defined(__SANITIZE_ADDRESS__)
#define CHROMALOG_PER_CPU __attribute__((target_clones("avx512f", "avx2", "default")))
#else
#define CHROMALOG_PER_CPU
#endif

namespace chromalog {

CHROMALOG_PER_CPU
bool fillWheelBlock(const float* __restrict middle, const float* __restrict low,
                    std::uint32_t* __restrict out, const BrightnessScale& scale, ChannelShifts shifts) {
    const BrightnessScale s = scale;
    const std::uint32_t top = 0xFF000000u | s.top << shifts.top;
    std::uint32_t smallest = ~0u;
    for (int i = 0; i < wheelBlock; ++i) {
        const std::uint32_t m = s.fixed(middle[i]);
        const std::uint32_t l = s.fixed(low[i]);
        smallest = std::min({smallest, s.fraction(m), s.fraction(l)});
        out[i] =
            top | (m >> s.fractionBits & 0xFF) << shifts.middle | (l >> s.fractionBits & 0xFF) << shifts.low;
    }
    return smallest == 0;
}

} // namespace chromalog
