// PNG through libpng's simplified API: any colour type, bit depth and interlacing come out
// as 8-bit RGBA; a truncated or malformed file fails cleanly instead of yielding half a picture.
#include "State.hpp"

#include <png.h>

#include <cstring>

namespace xui_impl {
namespace {

std::unique_ptr<Image> finish(png_image& png) {
    png.format = PNG_FORMAT_RGBA;
    if (uint64_t(png.width) * png.height > kMaxPixels || png.width == 0 || png.height == 0) {
        png_image_free(&png);
        return nullptr;
    }
    std::vector<uint8_t> rgba(PNG_IMAGE_SIZE(png));
    if (!png_image_finish_read(&png, nullptr, rgba.data(), 0, nullptr)) {
        png_image_free(&png);
        return nullptr;
    }
    auto img = std::make_unique<Image>(png.width, png.height);
    for (size_t i = 0; i < img->px.size(); ++i) {
        const uint8_t* p = &rgba[i * 4];
        img->px[i] = uint32_t(p[3]) << 24 | uint32_t(p[0]) << 16 | uint32_t(p[1]) << 8 | p[2];
    }
    return img;
}

} // namespace

std::unique_ptr<Image> decodePngFile(const char* path) {
    if (!path)
        return nullptr;
    png_image png;
    std::memset(&png, 0, sizeof png);
    png.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&png, path))
        return nullptr;
    return finish(png);
}

std::unique_ptr<Image> decodePngMemory(const unsigned char* data, size_t length) {
    if (!data || length == 0)
        return nullptr;
    png_image png;
    std::memset(&png, 0, sizeof png);
    png.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_memory(&png, data, length))
        return nullptr;
    return finish(png);
}

bool encodePngFile(const xui_host::Pixels& pixels, const char* path) {
    if (!path || pixels.width == 0 || pixels.height == 0)
        return false;
    std::vector<uint8_t> rgba(pixels.argb.size() * 4);
    for (size_t i = 0; i < pixels.argb.size(); ++i) {
        uint32_t c = pixels.argb[i];
        rgba[i * 4 + 0] = uint8_t(c >> 16);
        rgba[i * 4 + 1] = uint8_t(c >> 8);
        rgba[i * 4 + 2] = uint8_t(c);
        rgba[i * 4 + 3] = uint8_t(c >> 24);
    }
    png_image png;
    std::memset(&png, 0, sizeof png);
    png.version = PNG_IMAGE_VERSION;
    png.width = pixels.width;
    png.height = pixels.height;
    png.format = PNG_FORMAT_RGBA;
    return png_image_write_to_file(&png, path, 0, rgba.data(), 0, nullptr) != 0;
}

} // namespace xui_impl
