// GIF through giflib. Frames are composed once at load time into full pictures (honouring
// transparency and the disposal methods), so showing the frame due at some moment is a copy.
#include "State.hpp"

#include <gif_lib.h>

#include <algorithm>

namespace xui_impl {
namespace {

constexpr unsigned kMinDelayMs = 20; // browsers treat shorter delays as "as fast as possible"

struct GifCloser {
    void operator()(GifFileType* gif) const {
        int error = 0;
        DGifCloseFile(gif, &error);
    }
};

} // namespace

std::unique_ptr<GifAnimation> decodeGif(const char* path) {
    if (!path)
        return nullptr;
    int error = 0;
    std::unique_ptr<GifFileType, GifCloser> gif(DGifOpenFileName(path, &error));
    if (!gif || DGifSlurp(gif.get()) != GIF_OK || gif->ImageCount <= 0)
        return nullptr;
    const unsigned w = unsigned(std::max(gif->SWidth, 0)), h = unsigned(std::max(gif->SHeight, 0));
    // Every frame is kept composed at the screen's size: the whole animation must fit.
    if (w == 0 || h == 0 || uint64_t(w) * h * uint64_t(gif->ImageCount) > kMaxPixels)
        return nullptr;

    auto anim = std::make_unique<GifAnimation>();
    Image canvas(w, h, 0);
    for (int i = 0; i < gif->ImageCount; ++i) {
        const SavedImage& frame = gif->SavedImages[i];
        GraphicsControlBlock gcb{DISPOSAL_UNSPECIFIED, false, 0, NO_TRANSPARENT_COLOR};
        DGifSavedExtensionToGCB(gif.get(), i, &gcb);
        const ColorMapObject* map = frame.ImageDesc.ColorMap ? frame.ImageDesc.ColorMap : gif->SColorMap;
        if (!map || !frame.RasterBits)
            return nullptr;
        const Image before = canvas;
        const GifImageDesc& d = frame.ImageDesc;
        for (int r = 0; r < d.Height; ++r) {
            for (int c = 0; c < d.Width; ++c) {
                const int x = d.Left + c, y = d.Top + r;
                if (x < 0 || y < 0 || x >= int(w) || y >= int(h))
                    continue;
                const int index = frame.RasterBits[size_t(r) * size_t(d.Width) + size_t(c)];
                if (index == gcb.TransparentColor || index >= map->ColorCount)
                    continue;
                const GifColorType& rgb = map->Colors[index];
                canvas.px[size_t(y) * w + size_t(x)] =
                    0xFF000000u | uint32_t(rgb.Red) << 16 | uint32_t(rgb.Green) << 8 | rgb.Blue;
            }
        }
        GifFrame out;
        out.picture = canvas;
        out.delayMs = std::max<unsigned>(unsigned(std::max(gcb.DelayTime, 0)) * 10, kMinDelayMs);
        anim->totalMs += out.delayMs;
        anim->frames.push_back(std::move(out));

        if (gcb.DisposalMode == DISPOSE_BACKGROUND) {
            for (int r = 0; r < d.Height; ++r)
                for (int c = 0; c < d.Width; ++c) {
                    const int x = d.Left + c, y = d.Top + r;
                    if (x >= 0 && y >= 0 && x < int(w) && y < int(h))
                        canvas.px[size_t(y) * w + size_t(x)] = 0;
                }
        } else if (gcb.DisposalMode == DISPOSE_PREVIOUS) {
            canvas = before;
        }
    }
    anim->start = Clock::now();
    return anim;
}

void refreshGif(Canvas& c) {
    auto& s = state();
    GifAnimation& a = *c.gif;
    uint64_t elapsed =
        s.animationPinned
            ? uint64_t(s.pinnedAnimationTime.count())
            : uint64_t(std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - a.start).count());
    elapsed %= std::max(a.totalMs, 1u);
    size_t index = 0;
    for (uint64_t t = a.frames[0].delayMs; t <= elapsed && index + 1 < a.frames.size();
         t += a.frames[++index].delayMs) {
    }
    // The window shows the frame scaled to its own box, over a transparent background.
    std::fill(c.px.begin(), c.px.end(), 0);
    drawImage(c, 0, 0, int(c.width), int(c.height), XUI_BG_NORMAL, a.frames[index].picture);
}

} // namespace xui_impl
