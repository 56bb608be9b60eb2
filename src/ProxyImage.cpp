#include "ui/Image.hpp"

namespace ui {

ProxyImage::ProxyImage() : Widget(0, 0, 0, 0) {}

ProxyImage::ProxyImage(const std::string& path, unsigned int x, unsigned int y, unsigned int width,
                       unsigned int height)
    : Widget(x, y, width, height), image_(ImageResourceCache::getImage(path)) {
    ProxyImage::setX(x);
    ProxyImage::setY(y);
    ProxyImage::setWidth(width);
    ProxyImage::setHeight(height);
}

ProxyImage::~ProxyImage() = default;

void ProxyImage::loadResource(const std::string& path, unsigned int x, unsigned int y, unsigned int width,
                              unsigned int height) {
    image_ = ImageResourceCache::getImage(path);
    setX(x);
    setY(y);
    setWidth(width);
    setHeight(height);
}

void ProxyImage::loadResource(const std::string& path) {
    image_ = ImageResourceCache::getImage(path);
    setWidth(image_->getWidth());
    setHeight(image_->getHeight());
}

void ProxyImage::setX(unsigned int x) {
    Widget::setX(x);
    image_->setX(x);
}

void ProxyImage::setY(unsigned int y) {
    Widget::setY(y);
    image_->setY(y);
}

void ProxyImage::setWidth(unsigned int width) {
    Widget::setWidth(width);
    image_->setWidth(width);
}

void ProxyImage::setHeight(unsigned int height) {
    Widget::setHeight(height);
    image_->setHeight(height);
}

void ProxyImage::draw(_XuiWindow* canvas) {
    if (image_ && isVisible())
        image_->draw(canvas);
}

Image* ProxyImage::operator->() const {
    return image_.get();
}
Image& ProxyImage::operator*() const {
    return *image_;
}

} // namespace ui
