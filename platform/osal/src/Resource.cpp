#include "osal/resource.hpp"
#include "Internal.hpp"
#include "osal/host.hpp"

#include <array>
#include <atomic>

namespace {

// A dark default theme. Label text (1) must read both on the main background (2) and on the
// header (15), where the offline-store count is drawn in it; title captions and focused list
// rows put the main background colour (2) on the accent (10).
constexpr std::array<unsigned, 16> kDefaultPalette = {
    0xFF00FFFFu, // 0: unused
    0xECEFF1FFu, // 1 text
    0x0F1C2EFFu, // 2 main background
    0x64B5F6FFu, // 3 accent text
    0x90A4AEFFu, // 4 secondary text
    0x78909CFFu, // 5 progress frame
    0x1C2B3DFFu, // 6 progress background
    0x42A5F5FFu, // 7 progress fill
    0x66BB6AFFu, // 8 progress full
    0xFFB300FFu, // 9 warning
    0x4FC3F7FFu, // 10 accent (title band, focus bar)
    0x607D8BFFu, // 11 disabled text
    0xFFFFFFFFu, // 12 input text
    0xFFFFFFFFu, // 13 clock
    0xEF5350FFu, // 14 error
    0x07111EFFu, // 15 header background
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
