// GIF decoding and animation: any file gives a window that draws or none at all.
#include "Fuzz.hpp"

#include <xui.h>

#include <fstream>
#include <string>
#include <unistd.h>

namespace {

int animate(const uint8_t* data, size_t size) {
    fuzz::openDisplay();
    static const std::string path = "/tmp/ui_fuzz_" + std::to_string(::getpid()) + ".gif";
    std::ofstream(path, std::ios::binary | std::ios::trunc)
        .write(reinterpret_cast<const char*>(data), std::streamsize(size));
    if (XuiWindow* window = XuiCreateGif(XuiRootCanvas(), 10, 10, 120, 90, path.c_str())) {
        XuiShowWindow(window, 1, 0);
        XuiImg* shot = XuiCaptureScreen();
        XuiImgFree(shot);
        XuiDestroyWindow(window);
    }
    return 0;
}

} // namespace

UI_FUZZ_TARGET(gif, animate)
