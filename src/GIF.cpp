#include "ui/Image.hpp"

#include "ui/Xui.hpp"

GIFImpl::GIFImpl(const std::string& path, unsigned int x, unsigned int y, unsigned int width,
                 unsigned int height)
    : window_(ui::Xui::CreateGif(ui::Xui::RootCanvas(), x, y, width, height, path.c_str())) {}

GIFImpl::~GIFImpl() {
    if (window_)
        ui::Xui::DestroyWindow(window_);
}

void GIFImpl::draw() {
    if (window_)
        ui::Xui::ShowWindow(window_, visible_, 0);
}

void GIFImpl::visible(bool visible) {
    visible_ = visible;
    if (window_)
        ui::Xui::ShowWindow(window_, visible, 0);
}

bool GIFImpl::isVisible() const {
    return visible_;
}

namespace ui {

GIF::GIF() : GIF("", 0, 0, 0, 0) {}

GIF::GIF(const std::string& path, unsigned int x, unsigned int y, unsigned int width, unsigned int height)
    : Widget(x, y, width, height), path_(path), impl_(std::make_unique<GIFImpl>(path, x, y, width, height)) {}

GIF::GIF(GIF&& other) : Widget(0, 0, 0, 0), path_(other.path_), impl_(std::move(other.impl_)) {
    if (impl_)
        impl_->visible(other.Widget::isVisible());
}

GIF& GIF::operator=(GIF&& other) {
    if (this == &other)
        return *this;
    path_ = other.path_;
    Widget::setVisible(other.Widget::isVisible());
    impl_ = std::move(other.impl_); // the previous window is destroyed without being hidden first
    return *this;
}

GIF::~GIF() {
    if (impl_) {
        impl_->visible(false);
        impl_.reset();
    }
}

void GIF::draw(_XuiWindow*) {
    if (impl_)
        impl_->draw();
}

void GIF::visible(bool visible) {
    Widget::setVisible(visible);
    if (impl_)
        impl_->visible(visible);
}

bool GIF::isVisible() {
    return impl_ && impl_->isVisible();
}

} // namespace ui
