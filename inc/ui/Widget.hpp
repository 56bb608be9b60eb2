// The base of everything drawable, the container of child widgets, and the small value types
// shared across the library.
#pragma once

#include "utl/relaxed.hpp"

#include <osal/input.hpp>

#include <cstdint>
#include <memory>
#include <ostream>
#include <vector>

struct _XuiWindow;

namespace ui {

namespace geom {
// Unsigned pixels, canvas-relative.
struct rectangle {
    uint32_t x = 0;
    uint32_t y = 0;
    uint32_t width = 0;
    uint32_t height = 0;
};
} // namespace geom

namespace utils {
// Alignment of text in its box. Labels read the horizontal values, wrappable labels also
// the vertical ones; any other value behaves as Left (or Top).
enum Origin : int {
    Left = 0,
    Top = 1,
    Right = 2,
    Bottom = 3,
    Centre = 4,
};
} // namespace utils

// A rectangle on a canvas with a visibility flag. Geometry is plain unsigned arithmetic,
// unlocked: each value is read and written atomically, so the rendering thread may read it
// while the application sets it (a frame may mix old and new values). Widgets
// never own the canvas they draw into; draw() must honour the visible flag itself.
class Widget {
public:
    Widget(unsigned width, unsigned height);
    Widget(unsigned x, unsigned y, unsigned width, unsigned height);
    virtual ~Widget();

    virtual void setVisible(bool visible);
    virtual void setX(unsigned x);
    virtual void setY(unsigned y);
    virtual void setWidth(unsigned width);
    virtual void setHeight(unsigned height);
    virtual bool isVisible() const;
    virtual unsigned getX() const;
    virtual unsigned getY() const;
    virtual unsigned getWidth() const;
    virtual unsigned getHeight() const;

    virtual void draw(_XuiWindow* canvas) = 0;

protected:
    Widget(const Widget&) = default;
    Widget& operator=(const Widget&) = default;

private:
    // Set by the application while the rendering thread reads them.
    utl::relaxed<bool> visible_ = true;
    utl::relaxed<uint32_t> x_ = 0;
    utl::relaxed<uint32_t> y_ = 0;
    utl::relaxed<uint32_t> width_ = 0;
    utl::relaxed<uint32_t> height_ = 0;
};

// A screen or the status header: an ordered list of shared children. The application derives
// its views from it; the library only draws them and hands them keys.
class IContainer : public Widget {
public:
    IContainer(unsigned x, unsigned y, unsigned width, unsigned height);
    ~IContainer() override;

    // Called on the keypad thread with each key while this container is the current view.
    // Keys from the keypad come through Window::injectKeyPress, which holds no lock, so the
    // view may replace itself from here; a key given to GraphicsDevice::injectKeyPress runs
    // under the device's window lock instead (see GraphicsDevice).
    virtual void handleKeyPress(const device::input::Key& key) = 0;
    // Hooks for the application's own screen flow; the library never calls them.
    virtual void onShow() = 0;
    virtual void onHide() = 0;
    virtual void onRefresh() = 0;
    virtual bool isFinished() const = 0;

    // Draws every non-null child in insertion order; each child tests its own visibility.
    void drawWidgets(_XuiWindow* canvas);

protected:
    std::vector<std::shared_ptr<Widget>> widgets;
};

namespace detail {
// Draws the widget into the canvas; false (and nothing drawn) for a null widget.
bool update(_XuiWindow* canvas, Widget* widget);
// Returns the offset unchanged; kept for applications that position views through it.
unsigned CalculateMainViewYPosition(unsigned headerHeight, unsigned offset);
} // namespace detail

// Debug dump of a widget's geometry and visibility, one labelled line each.
std::ostream& operator<<(std::ostream& out, const Widget& widget);

} // namespace ui
