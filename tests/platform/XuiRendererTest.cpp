// The graphics stand-in as a renderer: what it paints must be what a terminal would show.
#include "Support.hpp"

#include <xui.h>
#include <zlib.h>

#include <cstddef>
#include <cstdio>
#include <fstream>

namespace {

constexpr uint32_t kWhite = 0xFFFFFFFF;
constexpr uint32_t kBlack = 0xFF000000;
constexpr uint32_t kRed = 0xFFFF0000;
char kFontPath[] = "./res/Carlito-Regular.ttf";

class XuiRenderer : public test::PlatformTest {
protected:
    XuiWindow* whiteCanvas(unsigned x, unsigned y, unsigned w, unsigned h) {
        XuiWindow* c = XuiCreateCanvas(XuiRootCanvas(), x, y, w, h);
        XuiCanvasSetBackground(c, XUI_BG_NORMAL, nullptr, kWhite);
        XuiShowWindow(c, 1, 0);
        return c;
    }
    XuiFont* font() {
        static XuiFont* f = XuiCreateFont(kFontPath, 0, XUI_FONT_SET_DEFAULT);
        return f;
    }
    std::string tempPath(const std::string& name) { return test::tempPath(name + ".png"); }
};

TEST_F(XuiRenderer, Open_RotationSwapsThePanelSides) {
    XuiClose();
    xui_host::setPanelSize(320, 240);
    ui::kit::Platform::openDisplay(90, 20);
    EXPECT_EQ(std::make_tuple(XuiRootCanvas()->width, XuiRootCanvas()->height, XuiStatusbarCanvas()->height),
              std::make_tuple(240u, 320u, 20u));
}

TEST_F(XuiRenderer, BadHandles_AreRefusedNotFollowed) {
    XuiWindow* c = XuiCreateCanvas(XuiRootCanvas(), 0, 0, 10, 10);
    XuiDestroyWindow(c);
    EXPECT_EQ(XuiCanvasDrawRect(c, 0, 0, 1, 1, kRed, 0, 1), -1);
    EXPECT_EQ(XuiDestroyWindow(c), -1);
    EXPECT_EQ(XuiImgFree(nullptr), -1);
    EXPECT_EQ(XuiCreateCanvas(nullptr, 0, 0, 1, 1), nullptr);
}

// A capture saved and loaded again is the same picture. (A broken file is the image loader's
// test: it loads as nothing, and the library says so.)
TEST_F(XuiRenderer, Png_RoundTrips) {
    XuiWindow* c = whiteCanvas(0, 0, 32, 32);
    XuiCanvasDrawRect(c, 2, 2, 3, 2, 0x8000FF00u, 0, 1);
    XuiImg* shot = XuiCaptureCanvas(c, 0, 0, 32, 32);
    ASSERT_NE(shot, nullptr);
    const std::string path = tempPath("roundtrip");
    ASSERT_EQ(XuiImgSaveToFile(shot, path.c_str()), 0);
    XuiImg* loaded = XuiImgLoadFromFile(path.c_str());
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(xui_host::image(loaded).argb, xui_host::image(shot).argb);
    std::vector<char> rgba(32 * 32 * 4);
    XuiImgToRgba(loaded, rgba.data());
    EXPECT_EQ(uint8_t(rgba[0]), 0xFF); // R of white
    EXPECT_EQ(uint8_t(rgba[3]), 0xFF); // A
    XuiImgFree(shot);
    XuiImgFree(loaded);

    EXPECT_EQ(XuiImgLoadFromFile("no/such/file.png"), nullptr);
    std::remove(path.c_str());
}

// A PNG that is all header: its IHDR claims width x height, and no pixel data follows.
std::vector<unsigned char> pngHeader(uint32_t width, uint32_t height) {
    std::vector<unsigned char> png = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    const auto be32 = [&](uint32_t v) {
        for (int shift : {24, 16, 8, 0})
            png.push_back(static_cast<unsigned char>(v >> shift));
    };
    be32(13);
    const size_t typeAt = png.size();
    png.insert(png.end(), {'I', 'H', 'D', 'R'});
    be32(width);
    be32(height);
    png.insert(png.end(), {8, 6, 0, 0, 0}); // 8-bit RGBA
    be32(static_cast<uint32_t>(crc32(0, png.data() + typeAt, 17)));
    return png;
}

// A GIF of one 1 x 1 frame at (left, top) on a screen of w x h, with the given LZW code size.
std::string gif(uint16_t w, uint16_t h, uint16_t left, uint16_t top, unsigned char codeSize = 2,
                int frames = 1) {
    const auto le16 = [](uint16_t v) { return std::string{char(v & 0xFF), char(v >> 8)}; };
    std::string out =
        "GIF89a" + le16(w) + le16(h) + std::string{'\x80', 0, 0} + std::string("\0\0\0\xff\xff\xff", 6);
    for (int i = 0; i < frames; ++i)
        out += "," + le16(left) + le16(top) + le16(1) + le16(1) + std::string(1, '\0') +
               std::string(1, char(codeSize)) + std::string("\x02\x44\x01\x00", 4); // clear, index 0, end
    return out + ";";
}

XuiWindow* openGif(const std::string& bytes) {
    const std::string path = test::tempPath("hostile.gif");
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
    return XuiCreateGif(XuiRootCanvas(), 0, 0, 64, 64, path.c_str());
}

// The records the library shares with the graphics library: the terminal's pointers are 4 bytes,
// this PC's 8. The fields that hold sizes and colours are 32-bit on both, at the same offsets.
TEST_F(XuiRenderer, Records_HoldSizesIn32Bits_WithPointersAsWideAsTheTarget) {
    static_assert(sizeof(XuiColor) == 4 && sizeof(unsigned int) == 4);
    static_assert(offsetof(XuiWindow, height) == 4 && offsetof(XuiImg, height) == 4);
    static_assert(offsetof(XuiButtonStat, text) == 8);
    static_assert(sizeof(XuiButtonStat) == 8 + 2 * sizeof(void*));
    static_assert(sizeof(XuiGetStrAttr) == sizeof(void*) + 5 * 4 + (sizeof(void*) == 8 ? 4 : 0));
}

TEST_F(XuiRenderer, HostileImages_AreRefusedOrClipped_NeverAllocatedWhole) {
    // Claimed sizes beyond any screen are refused from the header alone.
    EXPECT_EQ(XuiImgLoadFromMem(pngHeader(100000, 100000).data(), pngHeader(100000, 100000).size(), 0),
              nullptr);
    EXPECT_EQ(XuiImgLoadFromMem(pngHeader(4097, 4097).data(), pngHeader(4097, 4097).size(), 0), nullptr);
    // 2^32 pixels: a 32-bit size_t (the terminal's) would count them as none.
    EXPECT_EQ(XuiImgLoadFromMem(pngHeader(65536, 65536).data(), pngHeader(65536, 65536).size(), 0), nullptr);
    EXPECT_EQ(XuiImgLoadFromMem(pngHeader(0, 10).data(), pngHeader(0, 10).size(), 0), nullptr);

    XuiWindow* plain = openGif(gif(2, 2, 0, 0));
    ASSERT_NE(plain, nullptr); // the reference: the crafted GIF itself is sound
    XuiDestroyWindow(plain);
    EXPECT_EQ(openGif(gif(2, 0, 0, 0)), nullptr);               // no height
    EXPECT_EQ(openGif(gif(2, 2, 0, 0, 12)), nullptr);           // LZW code size out of range
    EXPECT_EQ(openGif(gif(4096, 4096, 0, 0, 2, 2)), nullptr);   // 32 M pixels of frames
    EXPECT_EQ(openGif(gif(32768, 32768, 0, 0, 2, 4)), nullptr); // 2^32 pixels: none in 32 bits
    EXPECT_EQ(openGif(gif(2, 2, 0, 0).substr(0, 20)), nullptr); // cut short
    XuiWindow* outside = openGif(gif(2, 2, 1000, 1000));        // a frame off the screen
    ASSERT_NE(outside, nullptr);
    XuiShowWindow(outside, 1, 0);
    EXPECT_FALSE(xui_host::screen().empty());
    XuiDestroyWindow(outside);
}

TEST_F(XuiRenderer, MalformedUtf8_MeasuresAndDrawsAsReplacementCharacters) {
    const auto width = [&](const char* text) { return XuiTextWidth(font(), 20, text); };
    const int replacement = width("\xEF\xBF\xBD");
    ASSERT_GT(replacement, 0);
    EXPECT_EQ(width("\xC3"), replacement);                 // cut mid-sequence
    EXPECT_EQ(width("\xC0\xAF"), 2 * replacement);         // overlong '/'
    EXPECT_EQ(width("\xED\xA0\x80"), 3 * replacement);     // a surrogate
    EXPECT_EQ(width("\xF4\x90\x80\x80"), 4 * replacement); // beyond U+10FFFF
    EXPECT_EQ(width("ab\xE2\x82"), width("ab") + 2 * replacement);
    XuiWindow* c = whiteCanvas(0, 0, 64, 32);
    EXPECT_EQ(XuiCanvasDrawText(c, 0, 0, 20, font(), XUI_TEXT_NORMAL, kBlack, "\xC3\xED\xA0\x80"), 0);
}

TEST_F(XuiRenderer, GeometryThatOverflowsOrLiesOffTheCanvas_PaintsNothingOutside) {
    XuiWindow* c = whiteCanvas(0, 0, 16, 16);
    XuiCanvasDrawRect(c, 0xFFFFFFF0u, 0xFFFFFFF0u, 0x20, 0x20, kRed, 0, 1); // wraps around to 0..15
    XuiCanvasDrawRect(c, 0x7FFFFFFF, 4, 0xFFFFFFFFu, 4, kRed, 3, 1);
    XuiCanvasDrawRect(c, 20, 20, 8, 8, kRed, 0, 1);
    XuiCanvasDrawText(c, 0xFFFFFFFFu, 0xFFFFFFFFu, 20, font(), XUI_TEXT_NORMAL, kRed, "Wrapped");
    EXPECT_EQ(XuiCanvasDrawText(c, 0xFFFFFFF0u, 0, 20, font(), XUI_TEXT_NORMAL, kRed, "wrapped"), 0);
    EXPECT_EQ(XuiCanvasDrawText(c, 0, 0, 0xFFFFFFFFu, font(), XUI_TEXT_NORMAL, kRed, "Huge"), -1); // refused
    EXPECT_EQ(XuiTextWidth(font(), 1 << 30, "Huge"), 0);
    XuiImg* shot = XuiCaptureCanvas(c, 0, 0, 16, 16);
    XuiCanvasDrawImg(c, 0x80000000u, 0x80000000u, 0xFFFFFFFFu, 0xFFFFFFFFu, XUI_BG_NORMAL, shot);
    XuiImgFree(shot);
    EXPECT_EQ(xui_host::canvas(c).width, 16u); // and nothing crashed on the way
    XuiWindow* narrow = whiteCanvas(0, 0, 40, 20);
    EXPECT_EQ(XuiCanvasDrawText(narrow, 30, 10, 20, font(), XUI_TEXT_NORMAL, kBlack, "Wide text"), 0);
    EXPECT_GE(test::inkBox(xui_host::canvas(narrow), kWhite).x0, 30); // clipped at the edge, drawn from x
}

} // namespace
