#include "osal/resource.hpp"
#include "Internal.hpp"
#include "osal/host.hpp"

#include <array>
#include <atomic>

namespace {

// A calm default theme: dark text on white, a deep blue accent for title bands and focus
// bars (white text on it), a navy header with a white clock, green progress.
constexpr std::array<unsigned, 16> kDefaultPalette = {
    0xFF00FFFFu, // 0: unused
    0x1E1E1EFFu, // 1 text
    0xFFFFFFFFu, // 2 main background
    0x0B4F8CFFu, // 3 accent text
    0x5F6368FFu, // 4 secondary text
    0x3C4043FFu, // 5 progress frame
    0xE8EAEDFFu, // 6 progress background
    0x1E88E5FFu, // 7 progress fill
    0x2E7D32FFu, // 8 progress full
    0xF9A825FFu, // 9 warning
    0x0B4F8CFFu, // 10 accent (title band, focus bar)
    0x9AA0A6FFu, // 11 disabled text
    0x111111FFu, // 12 input text
    0xFFFFFFFFu, // 13 clock
    0xC62828FFu, // 14 error
    0x102A43FFu, // 15 header background
};

std::array<std::atomic<unsigned>, 16>& palette() {
    static std::array<std::atomic<unsigned>, 16> p;
    static const bool initialised = [] {
        for (size_t i = 0; i < p.size(); ++i)
            p[i] = kDefaultPalette[i];
        return true;
    }();
    (void)initialised;
    return p;
}

} // namespace

unsigned resource::ResourceMapping::getResourceColor(BrandingColorId id) {
    if (id < 1 || id > 15)
        return kDefaultPalette[0];
    return palette()[size_t(id)].load(std::memory_order_relaxed);
}

namespace osal::detail {
void resetResources() {
    for (size_t i = 0; i < kDefaultPalette.size(); ++i)
        palette()[i] = kDefaultPalette[i];
}
} // namespace osal::detail

void osal::host::setColor(resource::BrandingColorId id, unsigned rgba) {
    if (id >= 1 && id <= 15)
        palette()[size_t(id)] = rgba;
}
