#include "Support.hpp"

#include "ui/Image.hpp"
#include "ui/Xui.hpp"

namespace {

class ProxyImageTest : public test::ImageCacheTest {
protected:
    std::vector<std::string> drawnAt() {
        std::vector<std::string> out;
        for (const auto& c : xui_host::trace("CanvasDrawImg"))
            out.push_back(c.args[1] + "," + c.args[2] + " " + c.args[3] + "x" + c.args[4]);
        return out;
    }
};

TEST_F(ProxyImageTest, ProxiesOfOnePathMoveTogether) {
    const std::string path = test::writePng("icon24", 24, 24);
    ui::ProxyImage first(path, 0, 0, 24, 24);
    ui::ProxyImage second(path, 100, 4, 20, 20);
    EXPECT_EQ(first.getX(), 0u); // the proxy keeps its own box...
    xui_host::clearTrace();
    first.draw(ui::Xui::RootCanvas());
    second.draw(ui::Xui::RootCanvas());
    // ...but both draw where the last one placed the shared image.
    EXPECT_EQ(drawnAt(), (std::vector<std::string>{"100,4 20x20", "100,4 20x20"}));
    EXPECT_EQ(&*first, &*second);
}

TEST_F(ProxyImageTest, LoadResource_TakesThePicturesSize_KeepsThePosition) {
    const std::string small = test::writePng("icon16", 16, 16);
    const std::string large = test::writePng("icon24b", 24, 24);
    ui::ProxyImage proxy(small, 7, 8, 16, 16);
    proxy.loadResource(large);
    EXPECT_EQ(proxy.getWidth(), 24u);
    EXPECT_EQ(proxy.getHeight(), 24u);
    EXPECT_EQ(proxy.getX(), 7u);
    EXPECT_EQ(proxy.getY(), 8u);
    proxy.loadResource(small, 1, 2, 3, 4);
    EXPECT_EQ(proxy->getX(), 1u);
    EXPECT_EQ(proxy->getHeight(), 4u);
}

TEST_F(ProxyImageTest, AFailedLoadKeepsThePreviousPicture) {
    const std::string path = test::writePng("icon16b", 16, 16);
    ui::ProxyImage proxy(path, 0, 0, 16, 16);
    EXPECT_THROW(proxy.loadResource("no/such/icon.png"), std::runtime_error);
    EXPECT_EQ(proxy->getFilename(), path);
}

TEST_F(ProxyImageTest, HiddenOrEmptyDrawsNothing) {
    ui::ProxyImage empty;
    empty.draw(ui::Xui::RootCanvas());
    ui::ProxyImage proxy(test::writePng("icon16c", 16, 16), 0, 0, 16, 16);
    proxy.setVisible(false);
    proxy.draw(ui::Xui::RootCanvas());
    EXPECT_TRUE(xui_host::trace("CanvasDrawImg").empty());
}

} // namespace
