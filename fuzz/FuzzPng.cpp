// PNG decoding: any bytes give an image or null, never a crash or a huge allocation.
#include "Fuzz.hpp"

#include <xui.h>

#include <vector>

namespace {

int decode(const uint8_t* data, size_t size) {
    fuzz::openDisplay();
    std::vector<unsigned char> copy(data, data + size);
    if (XuiImg* image = XuiImgLoadFromMem(copy.data(), copy.size(), 0)) {
        XuiCanvasDrawImg(XuiRootCanvas(), 0, 0, image->width, image->height, XUI_BG_NORMAL, image);
        XuiImgFree(image);
    }
    return 0;
}

} // namespace

UI_FUZZ_TARGET(png, decode)
