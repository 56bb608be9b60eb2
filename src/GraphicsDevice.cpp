#include "ui/GraphicsDevice.hpp"

#include "ui/Widget.hpp"
#include "ui/Window.hpp"
#include "ui/Xui.hpp"
#include "utl/thread.hpp"

#include <osal/event.hpp>
#include <osal/log.hpp>
#include <osal/resource.hpp>

#include <atomic>
#include <cstdio>
#include <mutex>
#include <utility>

namespace {
int mainCanvasWidth = 0;
int mainCanvasHeight = 0;
int headerWidth = 0;
int headerHeight = 0;
} // namespace

int GetMainCanvasWidth() {
    return mainCanvasWidth;
}
int GetMainCanvasHeight() {
    return mainCanvasHeight;
}
int GetHeaderWidth() {
    return headerWidth;
}
int GetHeaderHeight() {
    return headerHeight;
}

namespace ui {

class GraphicsDevice::GraphicsDeviceImpl : public IGraphics {
public:
    explicit GraphicsDeviceImpl(const GraphicsDeviceParams& p);
    ~GraphicsDeviceImpl() override;

    void reset() override;
    void update() override;
    void render(Widget* widget) override;
    void setWindow(const std::shared_ptr<Window>& w) override;
    void setContext(const std::shared_ptr<IContainer>& view) override;
    std::shared_ptr<IContainer> getContext() const override;
    void waitForDraw() override;
    void updateHeader() override;
    unsigned getScreenWidth() const override;
    unsigned getScreenHeight() const override;
    std::shared_ptr<Window> getWindow() const override;
    _XuiWindow* getRootCanvas() const override;
    void injectKeyPress(device::input::Key key) override;
    void reInitializeFrameBuffers() override;

    bool openGraphicsDevice();
    void initializeFrameBuffers();
    struct CanvasSize {
        unsigned width, height;
    };
    void switchBuffers(_XuiWindow** a, _XuiWindow** b, const CanvasSize& size);
    void closeGraphicsDevice();

private:
    void renderLoop();
    void applyBackgrounds();
    static void setBackgrounds(_XuiWindow* back, _XuiWindow* front, resource::BrandingColorId colour);

    std::atomic<bool> running{true};
    std::atomic<bool> open{false};
    // The canvases' sizes as created: a canvas that Xui has freed behind our back is never read.
    CanvasSize mainSize{};
    CanvasSize headerSize{};
    _XuiWindow* mainBack = nullptr;
    _XuiWindow* mainFront = nullptr;
    mutable std::mutex canvasMutex;
    _XuiWindow* headerBack = nullptr;
    _XuiWindow* headerFront = nullptr;
    std::mutex headerMutex;
    utl::thread renderThread;
    std::mutex drawMutex;
    AutomaticResetEvent<std::mutex, std::condition_variable> drawEvent;
    std::shared_ptr<Window> window;
    mutable std::mutex windowMutex;
    GraphicsDeviceParams params;
};

GraphicsDevice::GraphicsDeviceImpl::GraphicsDeviceImpl(const GraphicsDeviceParams& p) : params(p) {
    openGraphicsDevice();
    initializeFrameBuffers();
    if (open) {
        Xui::ShowWindow(mainFront, 1, 0);
        // The header canvas shown first is the one the first updateHeader draws into.
        Xui::ShowWindow(headerBack, 1, 0);
        mainCanvasWidth = static_cast<int>(mainSize.width);
        mainCanvasHeight = static_cast<int>(mainSize.height);
        headerWidth = static_cast<int>(headerSize.width);
        headerHeight = static_cast<int>(headerSize.height);
    }
    renderThread = utl::thread([this] { renderLoop(); });
}

GraphicsDevice::GraphicsDeviceImpl::~GraphicsDeviceImpl() {
    running = false;
    drawEvent.notify_one();
    if (renderThread.joinable())
        renderThread.join();
    closeGraphicsDevice();
    // Released outside the window lock: the window may own the contactless indicator, whose
    // worker must be able to finish a header redraw (which takes that lock) to be joined.
    std::shared_ptr<Window> released;
    {
        std::lock_guard<std::mutex> lock(windowMutex);
        released = std::atomic_exchange(&window, std::shared_ptr<Window>());
    }
}

bool GraphicsDevice::GraphicsDeviceImpl::openGraphicsDevice() {
    // Xui keeps its arguments as given: 15 characters each, longer values cut.
    char rotate[15];
    char statusbar[15];
    std::snprintf(rotate, sizeof rotate, "ROTATE=%d", params.rotate);
    std::snprintf(statusbar, sizeof statusbar, "STATUSBAR=%d", params.statusbar);
    char* arguments[] = {rotate, statusbar};
    if (!Xui::IsRunning())
        Xui::Open(2, arguments);
    open = Xui::IsRunning() != 0;
    return open;
}

void GraphicsDevice::GraphicsDeviceImpl::initializeFrameBuffers() {
    if (!open)
        return;
    std::scoped_lock lock(canvasMutex, headerMutex);
    _XuiWindow* root = Xui::RootCanvas();
    _XuiWindow* statusbarCanvas = Xui::StatusbarCanvas();
    // A status bar as high as the panel, or higher, or negative, leaves no room for the main
    // area (and unsigned arithmetic would ask for a huge one).
    if (root && statusbarCanvas && params.statusbar >= 0 && unsigned(params.statusbar) < root->height) {
        const unsigned width = root->width;
        const unsigned bar = static_cast<unsigned>(params.statusbar);
        mainSize = {width, root->height - bar};
        headerSize = {width, bar};
        // Each pair gets its background before the next pair is made, as the terminal does.
        mainBack = Xui::CreateCanvas(root, 0, 0, mainSize.width, mainSize.height);
        mainFront = Xui::CreateCanvas(root, 0, 0, mainSize.width, mainSize.height);
        if (mainBack && mainFront)
            setBackgrounds(mainBack, mainFront, resource::BRAND_MAIN_BACKGROUND);
        headerBack = Xui::CreateCanvas(statusbarCanvas, 0, 0, headerSize.width, headerSize.height);
        headerFront = Xui::CreateCanvas(statusbarCanvas, 0, 0, headerSize.width, headerSize.height);
        if (headerBack && headerFront)
            setBackgrounds(headerBack, headerFront, resource::BRAND_HEADER_BACKGROUND);
    }
    if (!mainBack || !mainFront || !headerBack || !headerFront) {
        // The device stays closed, as when the display does not open, and draws nothing.
        LOG(LogLevel::Error) << "GraphicsDevice: cannot create the canvases for a status bar of "
                             << params.statusbar << " pixels";
        for (_XuiWindow* canvas : {mainBack, mainFront, headerBack, headerFront})
            if (canvas)
                Xui::DestroyWindow(canvas);
        mainBack = mainFront = headerBack = headerFront = nullptr;
        mainSize = headerSize = {};
        open = false;
    }
}

void GraphicsDevice::GraphicsDeviceImpl::setBackgrounds(_XuiWindow* back, _XuiWindow* front,
                                                        resource::BrandingColorId colour) {
    const XuiColor background = fonts::intToXuiColor(resource::ResourceMapping::getResourceColor(colour));
    Xui::CanvasSetBackground(back, XUI_BG_NORMAL, nullptr, background);
    Xui::CanvasSetBackground(front, XUI_BG_NORMAL, nullptr, background);
}

void GraphicsDevice::GraphicsDeviceImpl::applyBackgrounds() {
    setBackgrounds(mainBack, mainFront, resource::BRAND_MAIN_BACKGROUND);
    setBackgrounds(headerBack, headerFront, resource::BRAND_HEADER_BACKGROUND);
}

void GraphicsDevice::GraphicsDeviceImpl::switchBuffers(_XuiWindow** a, _XuiWindow** b,
                                                       const CanvasSize& size) {
    std::swap(*a, *b);
    Xui::ShowWindow(*a, 1, 0);
    Xui::ShowWindow(*b, 0, 0);
    Xui::ClearArea(*b, 0, 0, size.width, size.height);
}

void GraphicsDevice::GraphicsDeviceImpl::closeGraphicsDevice() {
    {
        // Header redraws may still come from other threads (the contactless indicator's
        // worker): they find no canvas from here on.
        std::scoped_lock lock(canvasMutex, headerMutex);
        // A display closed behind our back took its canvases with it: nothing left to clear.
        if (open && Xui::IsRunning()) {
            Xui::ClearArea(mainBack, 0, 0, mainSize.width, mainSize.height);
            Xui::ClearArea(mainFront, 0, 0, mainSize.width, mainSize.height);
            Xui::ClearArea(headerBack, 0, 0, headerSize.width, headerSize.height);
            Xui::ClearArea(headerFront, 0, 0, headerSize.width, headerSize.height);
            for (_XuiWindow* canvas : {mainBack, mainFront, headerBack, headerFront})
                Xui::DestroyWindow(canvas);
        }
        mainBack = mainFront = headerBack = headerFront = nullptr;
        open = false;
    }
    Xui::Close();
}

void GraphicsDevice::GraphicsDeviceImpl::renderLoop() {
    std::unique_lock<std::mutex> drawing(drawMutex);
    while (running) {
        try {
            if (!drawing.owns_lock())
                drawing.lock();
            drawEvent.wait(drawing);
            std::lock_guard<std::mutex> windowLock(windowMutex);
            if (!window)
                continue;
            std::lock_guard<std::mutex> canvasLock(canvasMutex);
            // Nothing to draw into: the display did not open, or was closed behind our back.
            if (!mainBack || !Xui::IsRunning())
                continue;
            if (window->draw(mainBack))
                switchBuffers(&mainFront, &mainBack, mainSize);
        } catch (const std::exception& e) {
            LogException("GraphicsDevice", __LINE__, e);
        } catch (...) {
            LogException("GraphicsDevice", __LINE__);
        }
    }
}

void GraphicsDevice::GraphicsDeviceImpl::reset() {
    std::lock_guard<std::mutex> lock(windowMutex);
    if (window)
        window->setView(nullptr);
}

void GraphicsDevice::GraphicsDeviceImpl::update() {
    drawEvent.notify_one();
}

void GraphicsDevice::GraphicsDeviceImpl::render(Widget* widget) {
    std::lock_guard<std::mutex> drawing(drawMutex);
    _XuiWindow* canvas = getRootCanvas();
    if (!widget || !canvas || !Xui::IsRunning())
        return;
    widget->draw(canvas);
    std::lock_guard<std::mutex> lock(canvasMutex);
    if (mainBack)
        switchBuffers(&mainFront, &mainBack, mainSize);
}

void GraphicsDevice::GraphicsDeviceImpl::setWindow(const std::shared_ptr<Window>& w) {
    std::shared_ptr<Window> previous; // released outside the lock, as in the destructor
    std::lock_guard<std::mutex> lock(windowMutex);
    previous = std::atomic_exchange(&window, w);
}

void GraphicsDevice::GraphicsDeviceImpl::setContext(const std::shared_ptr<IContainer>& view) {
    std::lock_guard<std::mutex> lock(windowMutex);
    if (window)
        window->setView(view);
}

std::shared_ptr<IContainer> GraphicsDevice::GraphicsDeviceImpl::getContext() const {
    std::lock_guard<std::mutex> lock(windowMutex);
    return window ? window->getView() : nullptr;
}

void GraphicsDevice::GraphicsDeviceImpl::waitForDraw() {
    std::lock_guard<std::mutex> lock(drawMutex);
}

void GraphicsDevice::GraphicsDeviceImpl::updateHeader() {
    std::lock_guard<std::mutex> windowLock(windowMutex);
    if (!window)
        return;
    std::lock_guard<std::mutex> headerLock(headerMutex);
    if (!headerBack || !Xui::IsRunning())
        return;
    if (window->updateHeader(headerBack))
        switchBuffers(&headerFront, &headerBack, headerSize);
}

unsigned GraphicsDevice::GraphicsDeviceImpl::getScreenWidth() const {
    std::lock_guard<std::mutex> lock(canvasMutex);
    return Xui::IsRunning() && mainBack ? mainSize.width : 0;
}

unsigned GraphicsDevice::GraphicsDeviceImpl::getScreenHeight() const {
    std::lock_guard<std::mutex> lock(canvasMutex);
    return Xui::IsRunning() && mainBack ? mainSize.height : 0;
}

// Lock-free on purpose, so that it may be called from anywhere, key handlers included.
std::shared_ptr<Window> GraphicsDevice::GraphicsDeviceImpl::getWindow() const {
    return std::atomic_load(&window);
}

_XuiWindow* GraphicsDevice::GraphicsDeviceImpl::getRootCanvas() const {
    std::lock_guard<std::mutex> lock(canvasMutex);
    return mainBack;
}

void GraphicsDevice::GraphicsDeviceImpl::injectKeyPress(device::input::Key key) {
    std::lock_guard<std::mutex> lock(windowMutex);
    if (window)
        window->injectKeyPress(key);
}

void GraphicsDevice::GraphicsDeviceImpl::reInitializeFrameBuffers() {
    if (!open)
        return;
    {
        std::scoped_lock lock(canvasMutex, headerMutex);
        if (!mainBack)
            return;
        applyBackgrounds();
    }
    update();
    updateHeader();
}

GraphicsDevice::GraphicsDevice(const GraphicsDeviceParams& params)
    : impl_(std::make_unique<GraphicsDeviceImpl>(params)) {
    ServiceLocator::addGraphicsService(this);
}

GraphicsDevice::~GraphicsDevice() = default;

void GraphicsDevice::reset() {
    impl_->reset();
}
void GraphicsDevice::update() {
    impl_->update();
}
void GraphicsDevice::render(Widget* widget) {
    impl_->render(widget);
}
void GraphicsDevice::setWindow(const std::shared_ptr<Window>& window) {
    impl_->setWindow(window);
}
void GraphicsDevice::setContext(const std::shared_ptr<IContainer>& view) {
    impl_->setContext(view);
}
std::shared_ptr<IContainer> GraphicsDevice::getContext() const {
    return impl_->getContext();
}
void GraphicsDevice::waitForDraw() {
    impl_->waitForDraw();
}
void GraphicsDevice::updateHeader() {
    impl_->updateHeader();
}
unsigned GraphicsDevice::getScreenWidth() const {
    return impl_->getScreenWidth();
}
unsigned GraphicsDevice::getScreenHeight() const {
    return impl_->getScreenHeight();
}
std::shared_ptr<Window> GraphicsDevice::getWindow() const {
    return impl_->getWindow();
}
_XuiWindow* GraphicsDevice::getRootCanvas() const {
    return impl_->getRootCanvas();
}
void GraphicsDevice::injectKeyPress(device::input::Key key) {
    impl_->injectKeyPress(key);
}
void GraphicsDevice::reInitializeFrameBuffers() {
    impl_->reInitializeFrameBuffers();
}

} // namespace ui
