// Text through FreeType. Glyph bitmaps and advances are cached per font and pixel size, so
// that measuring and drawing the same text cost one map lookup per character. Width and
// drawing walk the same advances, which is why XuiTextWidth agrees with what is painted.
#include "State.hpp"

#include <ft2build.h>
#include FT_FREETYPE_H

#include <unordered_map>

namespace xui_impl {
namespace {

struct Glyph {
    int left = 0;    // from the pen to the bitmap's left edge
    int top = 0;     // from the baseline up to the bitmap's top edge
    int advance = 0; // whole pixels
    unsigned width = 0;
    unsigned rows = 0;
    std::vector<uint8_t> coverage;
};

struct SizedFace {
    int ascender = 0; // pixels from the top of the line to the baseline
    std::unordered_map<uint32_t, Glyph> glyphs;
};

struct FaceCache {
    FT_Face face = nullptr;
    std::unordered_map<unsigned, SizedFace> sizes;
};

FT_Library library() {
    static FT_Library lib = [] {
        FT_Library l = nullptr;
        FT_Init_FreeType(&l);
        return l;
    }();
    return lib;
}

std::map<const Font*, FaceCache>& caches() {
    static auto& c = *new std::map<const Font*, FaceCache>; // never destroyed
    return c;
}

constexpr uint32_t kReplacement = 0xFFFD;

// Decodes one UTF-8 sequence; anything malformed yields U+FFFD and consumes one byte, so
// every input terminates and nothing is read past the terminating zero.
uint32_t nextCodepoint(const unsigned char*& p) {
    const unsigned char c = *p;
    int extra = c < 0x80 ? 0 : (c >> 5) == 0x6 ? 1 : (c >> 4) == 0xE ? 2 : (c >> 3) == 0x1E ? 3 : -1;
    if (extra < 0) {
        ++p;
        return kReplacement;
    }
    uint32_t cp = extra == 0 ? c : extra == 1 ? (c & 0x1F) : extra == 2 ? (c & 0x0F) : (c & 0x07);
    for (int i = 1; i <= extra; ++i) {
        if ((p[i] & 0xC0) != 0x80) {
            ++p;
            return kReplacement;
        }
        cp = (cp << 6) | (p[i] & 0x3F);
    }
    static const uint32_t minimum[] = {0, 0x80, 0x800, 0x10000};
    if (cp < minimum[extra] || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
        ++p;
        return kReplacement;
    }
    p += extra + 1;
    return cp;
}

SizedFace& sized(FaceCache& fc, unsigned size) {
    auto it = fc.sizes.find(size);
    if (it != fc.sizes.end())
        return it->second;
    SizedFace& sf = fc.sizes[size];
    FT_Set_Pixel_Sizes(fc.face, 0, size);
    sf.ascender = int((fc.face->size->metrics.ascender + 63) >> 6);
    return sf;
}

const Glyph& glyph(FaceCache& fc, SizedFace& sf, unsigned size, uint32_t cp) {
    auto it = sf.glyphs.find(cp);
    if (it != sf.glyphs.end())
        return it->second;
    Glyph& g = sf.glyphs[cp];
    FT_Set_Pixel_Sizes(fc.face, 0, size);
    FT_UInt index = FT_Get_Char_Index(fc.face, cp);
    if (index == 0 && cp != kReplacement)
        index = FT_Get_Char_Index(fc.face, kReplacement); // falls back to .notdef (0) if absent
    if (FT_Load_Glyph(fc.face, index, FT_LOAD_RENDER | FT_LOAD_TARGET_NORMAL) != 0)
        return g;
    FT_GlyphSlot slot = fc.face->glyph;
    g.left = slot->bitmap_left;
    g.top = slot->bitmap_top;
    g.advance = int((slot->advance.x + 32) >> 6);
    g.width = slot->bitmap.width;
    g.rows = slot->bitmap.rows;
    g.coverage.resize(size_t(g.width) * g.rows);
    for (unsigned r = 0; r < g.rows; ++r)
        for (unsigned c = 0; c < g.width; ++c)
            g.coverage[size_t(r) * g.width + c] = slot->bitmap.buffer[r * slot->bitmap.pitch + int(c)];
    return g;
}

} // namespace

Font* createFont(const char* path, int index, XuiFontSet set) {
    if (!path || !library())
        return nullptr;
    FT_Face face = nullptr;
    if (FT_New_Face(library(), path, index, &face) != 0)
        return nullptr;
    if (set == XUI_FONT_SET_UNICODE)
        FT_Select_Charmap(face, FT_ENCODING_UNICODE);
    auto& s = state();
    auto font = std::make_unique<Font>();
    font->id = s.nextFontId++;
    font->path = path;
    font->face = face;
    Font* raw = font.get();
    caches()[raw].face = face;
    s.fonts.emplace(raw, std::move(font));
    return raw;
}

void destroyFont(Font* font) {
    FT_Done_Face(static_cast<FT_Face>(font->face));
    caches().erase(font);
    state().fonts.erase(font);
}

int textWidth(Font& font, unsigned size, const char* text) {
    if (!text || size == 0)
        return 0;
    FaceCache& fc = caches()[&font];
    SizedFace& sf = sized(fc, size);
    int width = 0;
    for (auto p = reinterpret_cast<const unsigned char*>(text); *p;)
        width += glyph(fc, sf, size, nextCodepoint(p)).advance;
    return width;
}

void drawText(Canvas& c, int x, int y, unsigned size, Font& font, XuiTextStyle style, uint32_t color,
              const char* text) {
    if (!text || size == 0)
        return;
    FaceCache& fc = caches()[&font];
    SizedFace& sf = sized(fc, size);
    // 64 bits: a line that starts just inside the coordinate range runs past it.
    const int64_t baseline = int64_t(y) + sf.ascender;
    int64_t pen = x;
    for (auto p = reinterpret_cast<const unsigned char*>(text); *p;) {
        const Glyph& g = glyph(fc, sf, size, nextCodepoint(p));
        const int64_t gx = pen + g.left, gy = baseline - g.top;
        for (unsigned r = 0; r < g.rows; ++r) {
            const int64_t py = gy + r;
            if (py < 0 || py >= int64_t(c.height))
                continue;
            for (unsigned col = 0; col < g.width; ++col) {
                const int64_t px = gx + col;
                const unsigned cov = g.coverage[size_t(r) * g.width + col];
                if (cov == 0 || px < 0 || px >= int64_t(c.width))
                    continue;
                uint32_t& dst = c.px[size_t(py) * c.width + px];
                dst = blend(dst, withCoverage(color, cov));
            }
        }
        pen += g.advance;
    }
    if (style == XUI_TEXT_UNDERLINE && baseline < int64_t(c.height) && pen - x < INT32_MAX)
        fillRect(c, x, int(baseline + 1), int(pen - x), 1, color, 0, true);
}

} // namespace xui_impl
