// Questions to ask of a picture (Terminal::screen(), xui_host::canvas()) when a golden would
// say too much: where anything was painted, and how much of a colour there is.
#pragma once

#include <xui_host.hpp>

#include <algorithm>
#include <cstdint>

namespace ui::kit {

struct Box {
    int x0 = 0, y0 = 0, x1 = -1, y1 = -1; // inclusive; x1 < x0 means empty
    bool empty() const { return x1 < x0; }
};

// The bounding box of every pixel that differs from the background colour.
inline Box inkBox(const xui_host::Pixels& p, uint32_t background) {
    Box b{int(p.width), int(p.height), -1, -1};
    for (unsigned y = 0; y < p.height; ++y)
        for (unsigned x = 0; x < p.width; ++x)
            if (p.at(x, y) != background) {
                b.x0 = std::min(b.x0, int(x));
                b.y0 = std::min(b.y0, int(y));
                b.x1 = std::max(b.x1, int(x));
                b.y1 = std::max(b.y1, int(y));
            }
    return b.x1 < 0 ? Box{} : b;
}

// The pixels of exactly this colour (0xAARRGGBB).
inline unsigned countColour(const xui_host::Pixels& p, uint32_t colour) {
    return unsigned(std::count(p.argb.begin(), p.argb.end(), colour));
}

} // namespace ui::kit
