#include "ui/Image.hpp"

#include "ui/Xui.hpp"

#include <boost/filesystem/operations.hpp>

#include <algorithm>
#include <locale>
#include <stdexcept>
#include <utility>

namespace ui {

_XuiImg* detail::loadimage(const char* path) {
    _XuiImg* image = Xui::ImgLoadFromFile(path);
    if (!image)
        throw std::runtime_error("loadImage: " + std::string(path ? path : "") + " does not point to a file");
    return image;
}

BaseImage::BaseImage(const std::string& filename, unsigned int x, unsigned int y, Loader loader)
    : Widget(x, y, 0, 0), filename_(filename), loader_(std::move(loader)) {
    image_ = loader_(filename_.c_str());
    if (image_) {
        Widget::setWidth(image_->width);
        Widget::setHeight(image_->height);
    }
}

BaseImage::BaseImage(const BaseImage& other)
    : Widget(other.Widget::getX(), other.Widget::getY(), other.Widget::getWidth(), other.Widget::getHeight()),
      filename_(other.filename_), loader_(other.loader_) {
    image_ = loader_(filename_.c_str());
}

BaseImage::BaseImage(BaseImage&& other)
    : Widget(other), image_(std::exchange(other.image_, nullptr)), filename_(std::move(other.filename_)),
      loader_(std::move(other.loader_)) {}

BaseImage::~BaseImage() {
    release();
}

void BaseImage::copyBox(const BaseImage& other) {
    Widget::setX(other.Widget::getX());
    Widget::setY(other.Widget::getY());
    Widget::setWidth(other.Widget::getWidth());
    Widget::setHeight(other.Widget::getHeight());
}

void BaseImage::release() {
    if (image_)
        Xui::ImgFree(image_);
    image_ = nullptr;
}

BaseImage& BaseImage::operator=(const BaseImage& other) {
    if (this == &other)
        return *this;
    release();
    copyBox(other);
    filename_ = other.filename_;
    image_ = loader_(filename_.c_str());
    return *this;
}

BaseImage& BaseImage::operator=(BaseImage&& other) {
    if (this == &other)
        return *this;
    release();
    copyBox(other);
    image_ = std::exchange(other.image_, nullptr);
    std::swap(filename_, other.filename_);
    return *this;
}

std::string BaseImage::getFilename() const {
    return filename_;
}
_XuiImg* BaseImage::getImage() const {
    return image_;
}
const BaseImage::Loader& BaseImage::getImageLoader() const {
    return loader_;
}

void BaseImage::draw(_XuiWindow* canvas) {
    Xui::CanvasDrawImg(canvas, getX(), getY(), getWidth(), getHeight(), XUI_BG_NORMAL, image_);
}

Image::Image(const std::string& filename) : BaseImage(filename, 0, 0, detail::loadimage) {}

Image::Image(const std::string& filename, unsigned int x, unsigned int y, unsigned int, unsigned int)
    : BaseImage(filename, x, y, detail::loadimage) {}

Image::Image(const std::string& filename, unsigned int x, unsigned int y, unsigned int, unsigned int,
             Loader loader)
    : BaseImage(filename, x, y, std::move(loader)) {}

Image::~Image() = default;

_XuiImg* Image::operator->() const {
    return getImage();
}
_XuiImg* Image::operator*() const {
    return getImage();
}

void Image::draw(_XuiWindow* canvas) {
    Xui::CanvasDrawImg(canvas, getX(), getY(), getWidth(), getHeight(), XUI_BG_NORMAL, getImage());
}

std::ostream& operator<<(std::ostream& out, const Image& image) {
    out << std::endl;
    out << "IMAGE DATA NOT NULL: " << std::boolalpha << (image.getImage() != nullptr) << std::endl;
    out << static_cast<const Widget&>(image);
    out << std::endl;
    return out;
}

bool ImageExtensionValidator::operator()(const std::string& extension) const {
    static const std::string png = ".png";
    const auto& ctype = std::use_facet<std::ctype<char>>(std::locale());
    return std::equal(extension.begin(), extension.end(), png.begin(), png.end(),
                      [&](char a, char b) { return ctype.toupper(a) == ctype.toupper(b); });
}

Directory::Directory(const std::string& path) : path_(path) {
    boost::system::error_code error;
    if (boost::filesystem::status(path, error).type() != boost::filesystem::directory_file)
        throw std::invalid_argument("Not a valid directory");
}

std::string Directory::getDirectory() const {
    return path_;
}

} // namespace ui

std::map<std::string, std::shared_ptr<ui::Image>> ImageResourceCache::cache_;

std::shared_ptr<ui::Image> ImageResourceCache::getImage(const std::string& path) {
    auto found = cache_.find(path);
    if (found != cache_.end())
        return found->second;
    auto image = std::make_shared<ui::Image>(path);
    cache_.emplace(path, image);
    return image;
}

void ImageResourceCache::clearCache() {
    cache_.clear();
}
