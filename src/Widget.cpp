#include "ui/Widget.hpp"

namespace ui {

Widget::Widget(unsigned width, unsigned height) : width_(width), height_(height) {}
Widget::Widget(unsigned x, unsigned y, unsigned width, unsigned height)
    : x_(x), y_(y), width_(width), height_(height) {}
Widget::~Widget() = default;

void Widget::setVisible(bool visible) {
    visible_ = visible;
}
void Widget::setX(unsigned x) {
    x_ = x;
}
void Widget::setY(unsigned y) {
    y_ = y;
}
void Widget::setWidth(unsigned width) {
    width_ = width;
}
void Widget::setHeight(unsigned height) {
    height_ = height;
}
bool Widget::isVisible() const {
    return visible_;
}
unsigned Widget::getX() const {
    return x_;
}
unsigned Widget::getY() const {
    return y_;
}
unsigned Widget::getWidth() const {
    return width_;
}
unsigned Widget::getHeight() const {
    return height_;
}

IContainer::IContainer(unsigned x, unsigned y, unsigned width, unsigned height)
    : Widget(x, y, width, height) {}
IContainer::~IContainer() = default;

void IContainer::drawWidgets(_XuiWindow* canvas) {
    for (const auto& widget : widgets)
        if (widget)
            widget->draw(canvas);
}

namespace detail {

bool update(_XuiWindow* canvas, Widget* widget) {
    if (!widget)
        return false;
    widget->draw(canvas);
    return true;
}

unsigned CalculateMainViewYPosition(unsigned, unsigned offset) {
    return offset;
}

} // namespace detail

std::ostream& operator<<(std::ostream& out, const Widget& widget) {
    // "Widtet" is the dump's historical spelling; log parsers in the field match on it.
    out << std::endl;
    out << "Widtet X:         " << widget.getX() << std::endl;
    out << "Widtet Y:         " << widget.getY() << std::endl;
    out << "Widtet W:         " << widget.getWidth() << std::endl;
    out << "Widtet H:         " << widget.getHeight() << std::endl;
    out << "Widtet VISIBLE:   " << widget.isVisible() << std::endl;
    out << std::endl;
    return out;
}

} // namespace ui
