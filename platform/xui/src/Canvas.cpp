// Canvases in memory: creation, clearing, rectangles, images and compositing.
#include "State.hpp"

#include <algorithm>

namespace xui_impl {

State& state() {
    // Never destroyed: images and fonts may be released by other libraries' statics at exit.
    static State& s = *new State;
    return s;
}

Image::Image(unsigned w, unsigned h, uint32_t fill) {
    width = w;
    height = h;
    px.assign(size_t(w) * h, fill);
}

Canvas::Canvas(unsigned w, unsigned h) {
    width = w;
    height = h;
    px.assign(size_t(w) * h, 0);
}

uint32_t blend(uint32_t dst, uint32_t src) {
    const unsigned sa = src >> 24;
    if (sa == 255)
        return src;
    if (sa == 0)
        return dst;
    const unsigned da = dst >> 24;
    if (da == 255) {
        auto mix = [&](int shift) {
            unsigned s = (src >> shift) & 0xFF, d = (dst >> shift) & 0xFF;
            return ((s * sa + d * (255 - sa) + 127) / 255) << shift;
        };
        return 0xFF000000u | mix(16) | mix(8) | mix(0);
    }
    // Both translucent: general "over" on non-premultiplied colours.
    const unsigned dw = da * (255 - sa) / 255; // the destination's remaining weight
    const unsigned oa = sa + dw;
    if (oa == 0)
        return 0;
    auto mix = [&](int shift) {
        unsigned s = (src >> shift) & 0xFF, d = (dst >> shift) & 0xFF;
        return ((s * sa + d * dw + oa / 2) / oa) << shift;
    };
    return (oa << 24) | mix(16) | mix(8) | mix(0);
}

Canvas* findCanvas(const XuiWindow* handle) {
    auto& s = state();
    auto it = s.canvases.find(const_cast<Canvas*>(static_cast<const Canvas*>(handle)));
    return it == s.canvases.end() ? nullptr : *it;
}

Canvas* createCanvas(Canvas* parent, unsigned x, unsigned y, unsigned w, unsigned h) {
    auto& s = state();
    auto* c = new Canvas(w, h);
    c->id = s.nextCanvasId++;
    c->name = "c" + std::to_string(c->id);
    c->parent = parent;
    c->x = int(x);
    c->y = int(y);
    if (parent)
        parent->children.push_back(c);
    s.canvases.insert(c);
    return c;
}

void destroyCanvas(Canvas* canvas) {
    auto& s = state();
    while (!canvas->children.empty())
        destroyCanvas(canvas->children.back());
    if (canvas->parent) {
        auto& siblings = canvas->parent->children;
        siblings.erase(std::remove(siblings.begin(), siblings.end(), canvas), siblings.end());
    }
    s.canvases.erase(canvas);
    delete canvas;
}

void destroyAllCanvases() {
    auto& s = state();
    if (s.root)
        destroyCanvas(s.root);
    if (s.statusbar)
        destroyCanvas(s.statusbar);
    s.root = s.statusbar = nullptr;
    while (!s.canvases.empty()) // orphans cannot exist, but never leak
        destroyCanvas(*s.canvases.begin());
}

namespace {

struct Box {
    int x0, y0, x1, y1; // half-open
    bool empty() const { return x0 >= x1 || y0 >= y1; }
};

Box clip(const Canvas& c, long long x, long long y, long long w, long long h) {
    auto clamp = [](long long v, long long hi) { return int(std::clamp<long long>(v, 0, hi)); };
    return {clamp(x, c.width), clamp(y, c.height), clamp(x + w, c.width), clamp(y + h, c.height)};
}

// Scales src into a w x h box by nearest neighbour; the common unscaled case is a copy.
uint32_t sampleScaled(const Image& src, int w, int h, int u, int v) {
    unsigned sx = w == int(src.width) ? unsigned(u) : unsigned(uint64_t(u) * src.width / unsigned(w));
    unsigned sy = h == int(src.height) ? unsigned(v) : unsigned(uint64_t(v) * src.height / unsigned(h));
    return src.at(sx, sy);
}

} // namespace

void clearArea(Canvas& c, int x, int y, int w, int h) {
    Box b = clip(c, x, y, w, h);
    const Image* img = c.backgroundImage.get();
    if (!img || !img->width || !img->height) { // a plain colour: the common case, on every present
        for (int row = b.y0; row < b.y1; ++row) {
            uint32_t* line = &c.px[size_t(row) * c.width];
            std::fill(line + b.x0, line + b.x1, c.background);
        }
        return;
    }
    for (int row = b.y0; row < b.y1; ++row) {
        uint32_t* line = &c.px[size_t(row) * c.width];
        for (int col = b.x0; col < b.x1; ++col) {
            uint32_t p = c.background;
            switch (c.backgroundStyle) {
            case XUI_BG_TILE:
                p = blend(p, img->at(unsigned(col) % img->width, unsigned(row) % img->height));
                break;
            case XUI_BG_CENTER: {
                int u = col - (int(c.width) - int(img->width)) / 2;
                int v = row - (int(c.height) - int(img->height)) / 2;
                if (u >= 0 && v >= 0 && u < int(img->width) && v < int(img->height))
                    p = blend(p, img->at(unsigned(u), unsigned(v)));
                break;
            }
            default:
                p = blend(p, sampleScaled(*img, int(c.width), int(c.height), col, row));
            }
            line[col] = p;
        }
    }
}

void fillRect(Canvas& c, int x, int y, int w, int h, uint32_t color, int radius, bool fill) {
    Box b = clip(c, x, y, w, h);
    if (b.empty())
        return;
    const int r = std::clamp(radius, 0, std::min(w, h) / 2);
    // A pixel is inside the rounded box unless it lies in a corner square outside the arc.
    auto inside = [&](int px, int py) {
        if (r == 0)
            return true;
        int cx = px < x + r ? x + r : (px >= x + w - r ? x + w - r - 1 : px);
        int cy = py < y + r ? y + r : (py >= y + h - r ? y + h - r - 1 : py);
        if (cx == px || cy == py)
            return true;
        long dx = px - cx, dy = py - cy;
        return dx * dx + dy * dy <= long(r) * r;
    };
    for (int row = b.y0; row < b.y1; ++row) {
        for (int col = b.x0; col < b.x1; ++col) {
            if (!inside(col, row))
                continue;
            if (!fill) {
                bool edge = !inside(col - 1, row) || !inside(col + 1, row) || !inside(col, row - 1) ||
                            !inside(col, row + 1) || col == x || row == y || col == x + w - 1 ||
                            row == y + h - 1;
                if (!edge)
                    continue;
            }
            uint32_t& p = c.px[size_t(row) * c.width + col];
            p = blend(p, color);
        }
    }
}

void drawImage(Canvas& c, int x, int y, int w, int h, XuiBgStyle style, const Image& img) {
    if (img.width == 0 || img.height == 0)
        return;
    if (style == XUI_BG_CENTER) {
        x += (w - int(img.width)) / 2;
        y += (h - int(img.height)) / 2;
        w = int(img.width);
        h = int(img.height);
    }
    Box b = clip(c, x, y, w, h);
    for (int row = b.y0; row < b.y1; ++row) {
        for (int col = b.x0; col < b.x1; ++col) {
            int u = col - x, v = row - y;
            uint32_t src = style == XUI_BG_TILE ? img.at(unsigned(u) % img.width, unsigned(v) % img.height)
                                                : sampleScaled(img, w, h, u, v);
            uint32_t& p = c.px[size_t(row) * c.width + col];
            p = blend(p, src);
        }
    }
}

namespace {

// Composites canvas c with its top-left at (ox, oy) of out, clipped to [cx0, cx1) x [cy0, cy1).
void compositeInto(xui_host::Pixels& out, Canvas& c, int ox, int oy, int cx0, int cy0, int cx1, int cy1) {
    if (!c.visible)
        return;
    if (c.gif)
        refreshGif(c);
    cx0 = std::max(cx0, ox);
    cy0 = std::max(cy0, oy);
    cx1 = std::min(cx1, ox + int(c.width));
    cy1 = std::min(cy1, oy + int(c.height));
    if (cx0 >= cx1 || cy0 >= cy1)
        return;
    for (int row = cy0; row < cy1; ++row) {
        const uint32_t* src = &c.px[size_t(row - oy) * c.width];
        uint32_t* dst = &out.argb[size_t(row) * out.width];
        for (int col = cx0; col < cx1; ++col)
            dst[col] = blend(dst[col], src[col - ox]);
    }
    for (Canvas* child : c.children)
        compositeInto(out, *child, ox + child->x, oy + child->y, cx0, cy0, cx1, cy1);
}

} // namespace

xui_host::Pixels composite(const Canvas& canvas) {
    xui_host::Pixels out;
    out.width = canvas.width;
    out.height = canvas.height;
    out.argb.assign(size_t(out.width) * out.height, 0);
    auto& c = const_cast<Canvas&>(canvas);
    bool wasVisible = c.visible;
    c.visible = true; // a capture of a hidden canvas still shows its content
    compositeInto(out, c, 0, 0, 0, 0, int(out.width), int(out.height));
    c.visible = wasVisible;
    return out;
}

xui_host::Pixels compositeScreen() {
    auto& s = state();
    xui_host::Pixels out;
    if (!s.open)
        return out;
    out.width = s.root->width;
    out.height = s.root->height;
    out.argb.assign(size_t(out.width) * out.height, 0xFF000000u);
    const int bar = int(s.statusbarHeight);
    compositeInto(out, *s.statusbar, 0, 0, 0, 0, int(out.width), bar);
    compositeInto(out, *s.root, 0, bar, 0, bar, int(out.width), int(out.height));
    return out;
}

} // namespace xui_impl
