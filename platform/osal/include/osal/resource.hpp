// Branding colours of the terminal's theme, as packed 0xRRGGBBAA integers.
#pragma once

namespace resource {

enum BrandingColorId {
    BRAND_TEXT = 1,            // labels and list text
    BRAND_MAIN_BACKGROUND = 2, // main screen background; text on the accent colour
    BRAND_ACCENT_TEXT = 3,
    BRAND_SECONDARY_TEXT = 4,
    BRAND_PROGRESS_FRAME = 5,
    BRAND_PROGRESS_BACKGROUND = 6,
    BRAND_PROGRESS_FILL = 7,
    BRAND_PROGRESS_FULL = 8,
    BRAND_WARNING = 9,
    BRAND_ACCENT = 10, // title bands and the list focus bar
    BRAND_DISABLED_TEXT = 11,
    BRAND_INPUT_TEXT = 12,
    BRAND_CLOCK = 13,
    BRAND_ERROR = 14,
    BRAND_HEADER_BACKGROUND = 15
};

class ResourceMapping {
public:
    // Unknown identifiers give opaque magenta, so that a missing colour is obvious on screen.
    static unsigned getResourceColor(BrandingColorId id);
};

} // namespace resource
