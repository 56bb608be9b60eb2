// Pictures: PNG images decoded by Xui, a process-wide cache sharing one decoded image per
// path, proxies that place cached images, animated GIFs, and two validation helpers.
#pragma once

#include "ui/Widget.hpp"

#include <functional>
#include <map>
#include <memory>
#include <ostream>
#include <string>

struct _XuiImg;

namespace ui {

namespace detail {
// Xui's decoder; throws std::runtime_error "loadImage: <path> does not point to a file" when
// the file is missing or cannot be decoded. Never returns null.
_XuiImg* loadimage(const char* path);
} // namespace detail

// An image widget that owns its decoded handle. Its size is the picture's own. The loader is
// kept so that a copy can decode its own handle (each copy frees only its own). draw() does
// not test visibility: containers that hide an image must not ask it to draw.
class BaseImage : public Widget {
public:
    using Loader = std::function<_XuiImg*(const char*)>;

    // Throws std::bad_function_call for an empty loader, and whatever the loader throws. A
    // loader that returns null leaves an image of size 0 x 0 that draws nothing.
    BaseImage(const std::string& filename, unsigned int x, unsigned int y, Loader loader);
    BaseImage(const BaseImage& other);
    BaseImage(BaseImage&& other);
    ~BaseImage() override;

    // Decodes afresh with this object's own loader.
    BaseImage& operator=(const BaseImage& other);
    // Takes the handle over and swaps the file names; the loaders stay where they were.
    BaseImage& operator=(BaseImage&& other);

    std::string getFilename() const;
    _XuiImg* getImage() const;
    const Loader& getImageLoader() const;

    void draw(_XuiWindow* canvas) override;

private:
    void release();
    // The widget's own fields, not through the virtual setters.
    void copyBox(const BaseImage& other);

    _XuiImg* image_ = nullptr;
    std::string filename_;
    Loader loader_;
};

class Image : public BaseImage {
public:
    explicit Image(const std::string& filename);
    // The width and height are ignored: an image is always the size of its picture.
    Image(const std::string& filename, unsigned int x, unsigned int y, unsigned int width,
          unsigned int height);
    Image(const std::string& filename, unsigned int x, unsigned int y, unsigned int width,
          unsigned int height, Loader loader);
    Image(const Image& other) = default;
    Image(Image&& other) = default;
    ~Image() override;
    Image& operator=(const Image& other) = default;
    Image& operator=(Image&& other) = default;

    // The handle, to pass straight to Xui calls.
    _XuiImg* operator->() const;
    _XuiImg* operator*() const;

    void draw(_XuiWindow* canvas) override;
};

// Writes whether the handle is set (as a word; boolalpha stays on), then the widget dump.
std::ostream& operator<<(std::ostream& out, const Image& image);

// True exactly for ".png" in any letter case: the extension with its dot, nothing more.
class ImageExtensionValidator {
public:
    bool operator()(const std::string& extension) const;
};

// A path that must name an existing directory; throws std::invalid_argument "Not a valid
// directory" otherwise.
class Directory {
public:
    explicit Directory(const std::string& path);
    std::string getDirectory() const;

private:
    std::string path_;
};

// Places a cached image. Every proxy of one path shares one ui::Image, so setting a proxy's
// position or size moves every proxy of that path: it is how an icon moves everywhere at
// once. Use distinct paths (or own ui::Image objects) to show one picture at two places.
// The setters need a loaded image. Like the cache, single-threaded: the screen's thread.
class ProxyImage : public Widget {
public:
    ProxyImage();
    // Throws what the loader throws for a missing or undecodable file.
    ProxyImage(const std::string& path, unsigned int x, unsigned int y, unsigned int width,
               unsigned int height);
    ~ProxyImage() override;

    // On failure the previous picture stays and the loader's error propagates.
    void loadResource(const std::string& path, unsigned int x, unsigned int y, unsigned int width,
                      unsigned int height);
    // Takes the picture's size; keeps this proxy's position (the shared image keeps its own).
    void loadResource(const std::string& path);

    void setX(unsigned int x) override;
    void setY(unsigned int y) override;
    void setWidth(unsigned int width) override;
    void setHeight(unsigned int height) override;

    // Draws the shared image at its own position and size, when loaded and visible.
    void draw(_XuiWindow* canvas) override;

    Image* operator->() const;
    Image& operator*() const;

private:
    std::shared_ptr<Image> image_;
};

} // namespace ui

// One decoded image per path for the whole process, shared by every holder. Paths are keys
// as given (no normalisation). Not locked: use it from the thread that builds screens.
class ImageResourceCache {
public:
    ImageResourceCache() = delete;

    // Decodes on first use; a decoding error propagates and nothing is stored.
    static std::shared_ptr<ui::Image> getImage(const std::string& path);
    // Drops the cache's references; holders keep their images alive.
    static void clearCache();

private:
    static std::map<std::string, std::shared_ptr<ui::Image>> cache_;
};

// The platform window of an animated GIF, played by Xui on the root canvas.
class GIFImpl {
public:
    GIFImpl(const std::string& path, unsigned int x, unsigned int y, unsigned int width, unsigned int height);
    ~GIFImpl();
    GIFImpl(const GIFImpl&) = delete;
    GIFImpl& operator=(const GIFImpl&) = delete;

    void draw();
    void visible(bool visible);
    bool isVisible() const;
    _XuiWindow* window() const { return window_; }

private:
    _XuiWindow* window_;
    utl::relaxed<bool> visible_ = true;
};

namespace ui {

// An animated GIF. Xui plays it in a window of its own created once, at construction, at the
// given box; draw() only shows or hides that window and paints nothing on the canvas. Hide
// it with visible(false): setVisible() and the geometry setters change only the widget's
// fields. A missing or broken file gives a GIF that draws nothing. Moves only: a moved-from
// GIF may only be assigned to or destroyed.
class GIF : public Widget {
public:
    GIF();
    GIF(const std::string& path, unsigned int x, unsigned int y, unsigned int width, unsigned int height);
    // The animation moves over, and keeps playing where it was; place the new object again.
    GIF(GIF&& other);
    GIF& operator=(GIF&& other);
    GIF(const GIF&) = delete;
    GIF& operator=(const GIF&) = delete;
    ~GIF() override;

    void draw(_XuiWindow* canvas) override;
    void visible(bool visible);
    // The animation window's flag, distinct from the widget's const isVisible().
    bool isVisible();
    using Widget::isVisible;

private:
    std::string path_;
    std::unique_ptr<GIFImpl> impl_;
};

} // namespace ui
