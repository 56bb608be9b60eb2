#include "Support.hpp"

#include "ui/Image.hpp"
#include "ui/Xui.hpp"

#include <fstream>
#include <map>
#include <sstream>

namespace {

class ImageTest : public test::PlatformTest {
protected:
    void SetUp() override {
        test::PlatformTest::SetUp();
        picture = test::writePng("picture32x16", 32, 16);
    }
    // Every handle loaded must be freed exactly once.
    void expectEachHandleFreedOnce() {
        std::map<std::string, int> frees;
        for (const auto& c : xui_host::trace("ImgFree"))
            ++frees[c.args[0]];
        for (const auto& [handle, count] : frees)
            EXPECT_EQ(count, 1) << handle;
        EXPECT_EQ(frees.size(), xui_host::trace("ImgLoadFromFile").size());
    }
    std::string picture;
};

TEST_F(ImageTest, Loader_ThrowsWithThePathForAMissingOrBrokenFile) {
    EXPECT_THAT(
        [] { ui::Image("no/such/picture.png"); },
        ThrowsMessage<std::runtime_error>(StrEq("loadImage: no/such/picture.png does not point to a file")));
    const std::string broken = test::tempPath("broken.png");
    std::ofstream(broken) << "\x89PNG\r\n\x1a\n but then nothing";
    EXPECT_THROW(ui::Image{broken}, std::runtime_error);
}

// An image takes its picture's size whatever box it was given, and blits it at its place even
// when hidden.
TEST_F(ImageTest, SizeIsThePicturesOwn_AndDrawBlitsItEvenWhenHidden) {
    ui::Image image(picture, 5, 6, 100, 100);
    EXPECT_EQ(image.getWidth(), 32u);
    EXPECT_EQ(image.getHeight(), 16u);
    image.setVisible(false);
    xui_host::clearTrace();
    image.draw(ui::Xui::RootCanvas());
    image.BaseImage::draw(ui::Xui::RootCanvas()); // the base blits the same
    const std::string blit = "CanvasDrawImg(root, 5, 6, 32, 16, 0, " + xui_host::nameOf(*image) + ")";
    EXPECT_EQ(calls("CanvasDrawImg"), (std::vector<std::string>{blit, blit}));
    ui::Image nothing(picture, 0, 0, 0, 0, [](const char*) -> _XuiImg* { return nullptr; });
    EXPECT_EQ(nothing.getWidth() + nothing.getHeight(), 0u);
    std::ostringstream dump;
    dump << image;
    EXPECT_NE(dump.str().find("IMAGE DATA NOT NULL: true"), std::string::npos);
    const ui::Image atTheCorner(picture);
    EXPECT_EQ(atTheCorner.getX() + atTheCorner.getY(), 0u);
    EXPECT_EQ(*nothing, nullptr);
    EXPECT_THROW(ui::Image(picture, 0, 0, 0, 0, nullptr), std::bad_function_call);
}

TEST_F(ImageTest, CopiesAndMoves_OwnTheirHandles) {
    {
        auto source = std::make_unique<ui::Image>(picture, 1, 2, 0, 0);
        source->setVisible(false);
        ui::Image copy(*source);
        EXPECT_NE(*copy, **source);
        EXPECT_TRUE(copy.isVisible());
        EXPECT_EQ(copy.getWidth(), 32u);
        source.reset();
        copy.draw(ui::Xui::RootCanvas()); // still drawable after the source is gone
        EXPECT_EQ(xui_host::trace("CanvasDrawImg").back().args.back(), xui_host::nameOf(*copy));

        ui::Image moved(std::move(copy));
        EXPECT_EQ(*copy, nullptr);
        EXPECT_NE(*moved, nullptr);

        const std::string other = test::writePng("other8x8", 8, 8);
        ui::Image target(other);
        target = moved; // frees its own, loads afresh, and takes the box
        EXPECT_EQ(target.getFilename(), picture);
        EXPECT_EQ(test::box(target), "1 2 32 16");
        EXPECT_NE(*target, *moved);
        target = target; // self-assignment changes nothing

        ui::Image swapped(other);
        swapped = std::move(moved);
        EXPECT_EQ(swapped.getFilename(), picture);
        EXPECT_EQ(test::box(swapped), "1 2 32 16"); // the box comes with the picture
        EXPECT_EQ(moved.getFilename(), other);
        EXPECT_EQ(*moved, nullptr);
    }
    expectEachHandleFreedOnce();
}

TEST_F(ImageTest, Cache_SharesOneImagePerPath_UntilCleared) {
    auto a = ImageResourceCache::getImage(picture);
    EXPECT_EQ(ImageResourceCache::getImage(picture), a);
    EXPECT_EQ(xui_host::trace("ImgLoadFromFile").size(), 1u);
    ImageResourceCache::clearCache();
    auto c = ImageResourceCache::getImage(picture);
    EXPECT_NE(c, a);
    EXPECT_NE(a->getImage(), nullptr) << "the old image stays valid for its holders";
    EXPECT_NE(ImageResourceCache::getImage("/" + picture), c) << "paths are keys as given";
    EXPECT_THROW(ImageResourceCache::getImage("missing.png"), std::runtime_error);
    EXPECT_THROW(ImageResourceCache::getImage("missing.png"), std::runtime_error); // nothing stored
    EXPECT_EQ(xui_host::trace("ImgLoadFromFile").size(), 5u);
}

TEST_F(ImageTest, Validators_AcceptOnlyDotPng_AndOnlyAnExistingDirectory) {
    const ui::ImageExtensionValidator valid;
    for (const char* yes : {".png", ".PNG", ".Png", ".pNg"})
        EXPECT_TRUE(valid(yes)) << yes;
    for (const char* no : {".jpg", "png", ".png ", ".pngx", "", "a.png", ".gif", " .png"})
        EXPECT_FALSE(valid(no)) << '"' << no << '"';

    EXPECT_EQ(ui::Directory("res").getDirectory(), "res");
    for (const std::string& path : {picture, std::string("no/such/dir"), std::string()}) {
        EXPECT_THAT([&] { ui::Directory{path}; },
                    ThrowsMessage<std::invalid_argument>(StrEq("Not a valid directory")))
            << path;
    }
}

// Proxies of one path share one image: each keeps its own box, but all draw where the last one
// placed the picture; a failed load keeps the picture before it.
TEST_F(ImageTest, ProxiesOfOnePathShareTheImage_AndLoadsTakeThePicturesSize) {
    const auto drawnAt = [] {
        std::vector<std::string> out;
        for (const auto& c : xui_host::trace("CanvasDrawImg"))
            out.push_back(c.args[1] + "," + c.args[2] + " " + c.args[3] + "x" + c.args[4]);
        return out;
    };
    const std::string small = test::writePng("icon16", 16, 16), large = test::writePng("icon24", 24, 24);
    ui::ProxyImage first(large, 0, 0, 24, 24), second(large, 100, 4, 20, 20), empty;
    xui_host::clearTrace();
    for (ui::ProxyImage* proxy : {&first, &second, &empty})
        proxy->draw(ui::Xui::RootCanvas());
    EXPECT_EQ(drawnAt(), (std::vector<std::string>{"100,4 20x20", "100,4 20x20"}));
    EXPECT_EQ(&*first, &*second);

    const std::string other = test::writePng("icon24b", 24, 24);
    ui::ProxyImage proxy(small, 7, 8, 16, 16);
    proxy.loadResource(other);
    EXPECT_EQ(test::box(proxy), "7 8 24 24");
    EXPECT_THROW(proxy.loadResource("no/such/icon.png"), std::runtime_error);
    EXPECT_EQ(proxy->getFilename(), other);
    proxy.loadResource(small, 1, 2, 3, 4);
    EXPECT_EQ(test::box(proxy) + ", picture " + test::box(*proxy), "1 2 3 4, picture 1 2 3 4");
    proxy.setVisible(false);
    xui_host::clearTrace();
    proxy.draw(ui::Xui::RootCanvas());
    EXPECT_TRUE(drawnAt().empty());
}

} // namespace
