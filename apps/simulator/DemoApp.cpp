#include "DemoApp.hpp"

#include <osal/device.hpp>
#include <osal/localization.hpp>
#include <osal/resource.hpp>

#include <chrono>

namespace demo {
namespace {

using device::input::Key;
const std::string kRes = "res/";

std::string text(int id, const std::string& fallback) {
    try {
        return Localization::getLocalizedString(id);
    } catch (const LocalizationException&) {
        return fallback;
    }
}

} // namespace

// A screen of the demo: its widgets, and what its keys do.
class Screen : public ui::IContainer {
public:
    explicit Screen(DemoApp& app)
        : IContainer(0, 0, unsigned(GetMainCanvasWidth()), unsigned(GetMainCanvasHeight())), app_(app) {}
    void add(std::shared_ptr<ui::Widget> widget) { widgets.push_back(std::move(widget)); }
    void draw(_XuiWindow* canvas) override { drawWidgets(canvas); }
    void handleKeyPress(const Key& key) override {
        if (key == device::input::KEY_NONE)
            return;
        if (onKey)
            onKey(key);
        app_.keyHandled();
    }
    void onShow() override {
        if (whenShown)
            whenShown();
    }
    void onHide() override {
        if (whenHidden)
            whenHidden();
    }
    void onRefresh() override {}
    bool isFinished() const override { return false; }

    std::function<void(Key)> onKey;
    std::function<void()> whenShown;
    std::function<void()> whenHidden;

private:
    DemoApp& app_;
};

namespace {

std::shared_ptr<ui::Label> label(unsigned x, unsigned y, unsigned w, unsigned h, const std::string& s,
                                 ui::utils::Origin align, unsigned size = 20) {
    auto l = std::make_shared<ui::Label>(x, y, w, h);
    l->setText(s);
    l->setHeight(h);
    l->setAlignment(align);
    l->setFontSize(size);
    return l;
}

// A coloured band with a centred caption at the top of a screen.
class TitleBand : public ui::Widget {
public:
    explicit TitleBand(const std::string& caption) : Widget(0, 0, unsigned(GetMainCanvasWidth()), 26) {
        caption_.setText(caption);
        caption_.setHeight(26);
        caption_.setAlignment(ui::utils::Centre);
        caption_.setColor(resource::ResourceMapping::getResourceColor(resource::BRAND_MAIN_BACKGROUND));
    }
    void draw(_XuiWindow* canvas) override {
        ui::Xui::CanvasDrawRect(
            canvas, getX(), getY(), getWidth(), getHeight(),
            ui::fonts::intToXuiColor(resource::ResourceMapping::getResourceColor(resource::BRAND_ACCENT)), 0,
            1);
        caption_.draw(canvas);
    }

private:
    ui::Label caption_{0, 3, unsigned(GetMainCanvasWidth()), 20};
};

// The status header: clock, offline store, update, signal, Ethernet, battery.
class Header : public ui::IContainer {
public:
    Header() : IContainer(0, 0, unsigned(GetHeaderWidth()), unsigned(GetHeaderHeight())) {
        offline = std::make_shared<ui::OfflineTransactionStore>(130, 1, 32, 16, kRes);
        update = std::make_shared<ui::ApplicationUpdate>(172, 4, 24, 24, kRes);
        std::vector<ui::Image> bars;
        for (int i = 0; i < 5; ++i)
            bars.emplace_back(kRes + "images/header/signal/signal_" + std::to_string(i) + ".png", 198, 4, 0,
                              0);
        signal = std::make_shared<ui::SignalStrength>(ui::geom::rectangle{198, 4, 24, 24}, bars);
        ethernet = std::make_shared<ui::Ethernet>(224, 4, 24, 24, kRes);
        flight = std::make_shared<ui::FlightMode>(250, 4, 24, 24, kRes);
        battery = std::make_shared<ui::Battery>(276, 4, 24, 24, kRes);
        widgets = {
            std::make_shared<ui::Time>(4, 0, 96, 20), offline, update, signal, ethernet, flight, battery};
    }
    void draw(_XuiWindow* canvas) override { drawWidgets(canvas); }
    void handleKeyPress(const Key&) override {}
    void onShow() override {}
    void onHide() override {}
    void onRefresh() override {}
    bool isFinished() const override { return false; }

    std::shared_ptr<ui::OfflineTransactionStore> offline;
    std::shared_ptr<ui::ApplicationUpdate> update;
    std::shared_ptr<ui::SignalStrength> signal;
    std::shared_ptr<ui::Ethernet> ethernet;
    std::shared_ptr<ui::FlightMode> flight;
    std::shared_ptr<ui::Battery> battery;
};

} // namespace

DemoApp::DemoApp() : ui_(GraphicsDeviceParams{0, 32}) {
    ui_.initialize();
    graphics_ = ui::ServiceLocator::getGraphicsService();
    const unsigned w = unsigned(GetMainCanvasWidth()), h = unsigned(GetMainCanvasHeight());
    using ui::utils::Origin;

    auto header = std::make_shared<Header>();
    header->offline->setValue(3);
    header->update->setValue(true);
    header->signal->setSignal(80);
    header->ethernet->setValue(true);
    header->battery->setValue(3);
    graphics_->getWindow()->setHeader(header);

    idle_ = std::make_shared<Screen>(*this);
    idle_->add(label(0, 14, w, 30, text(1, "Welcome"), ui::utils::Centre, 28));
    auto prompt = std::make_shared<ui::WrappableLabel>(10, 150, w - 20, 40, Origin::Centre, Origin::Centre);
    prompt->wrapText(text(7, "Present card"));
    idle_->add(prompt);
    idle_->add(label(0, h - 22, w, 20, "ENTER: menu", ui::utils::Centre, 14));
    auto animation =
        std::make_shared<ui::GIF>(kRes + "images/demo/present_card.gif", (w - 120) / 2, 52, 120, 90);
    idle_->add(animation);
    idle_->whenShown = [animation] { animation->visible(true); };
    idle_->whenHidden = [animation] { animation->visible(false); };
    idle_->onKey = [this](Key key) {
        if (key == device::input::KEY_ENTER)
            showMenu();
        else if (key == device::input::KEY_F1)
            showLabels();
        else if (key == device::input::KEY_POWER)
            finish();
    };

    menu_ = std::make_shared<Screen>(*this);
    menu_->add(std::make_shared<TitleBand>(text(14, "Main menu")));
    std::vector<ui::ListItem> items;
    const struct {
        int id;
        const char* fallback;
        bool disabled;
    } entries[] = {{2, "Sale", false},    {3, "Refund", false},
                   {15, "Void", true},    {16, "Pre-authorisation", false},
                   {4, "Reports", false}, {17, "End of day", false},
                   {5, "Settings", false}};
    for (const auto& e : entries) {
        ui::menu::MenuItem item(e.id, text(e.id, e.fallback), e.disabled);
        if (e.id == 2)
            item.setTarget([this] { startSale(); });
        items.emplace_back(0, 0, w - 16, 0, item);
    }
    auto list = std::make_shared<ui::ListBox>(8, 36, w - 16, 175, items);
    menu_->add(list);
    menu_->onKey = [this, list](Key key) {
        switch (key) {
        case device::input::KEY_UP:
            list->up();
            break;
        case device::input::KEY_DOWN:
            list->down();
            break;
        case device::input::KEY_ENTER:
            std::static_pointer_cast<ui::ListItem>(list->getSelectedElement())->getMenuItem().invokeAction();
            return;
        case device::input::KEY_CANCEL:
            showIdle();
            return;
        default:
            return;
        }
        graphics_->update();
    };

    receipt_ = std::make_shared<Screen>(*this);
    receipt_->add(std::make_shared<TitleBand>(text(2, "Sale")));
    auto printing = std::make_shared<ui::WrappableLabel>(10, 60, w - 20, 40, Origin::Centre, Origin::Centre);
    printing->wrapText(text(11, "Printing receipt"));
    receipt_->add(printing);
    progress_ = std::make_shared<ui::ProgressBar>(200, 20);
    progress_->setX((w - 200) / 2);
    progress_->setY(120);
    receipt_->add(progress_);

    approved_ = std::make_shared<Screen>(*this);
    approved_->add(label(0, 60, w, 40, text(8, "Approved"), ui::utils::Centre, 36));
    approved_->add(label(0, 110, w, 30, text(13, "Thank you"), ui::utils::Centre));
    approved_->add(label(0, h - 22, w, 20, "CANCEL: back", ui::utils::Centre, 14));
    approved_->onKey = [this](Key key) {
        if (key == device::input::KEY_CANCEL || key == device::input::KEY_ENTER)
            showIdle();
    };

    labels_ = std::make_shared<Screen>(*this);
    labels_->add(label(10, 4, 300, 20, "Left aligned", ui::utils::Left));
    labels_->add(label(10, 26, 300, 20, "Centred", ui::utils::Centre));
    labels_->add(label(10, 48, 300, 20, "Right aligned", ui::utils::Right));
    labels_->add(label(10, 74, 300, 60, "A longer message wraps on spaces across as many lines as it needs",
                       ui::utils::Centre));
    labels_->add(label(10, 140, 300, 70, "Reference: ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789ABCDEFGHIJ",
                       ui::utils::Left));
    labels_->onKey = [this](Key key) {
        if (key == device::input::KEY_CANCEL)
            showIdle();
    };

    graphics_->updateHeader();
    showIdle();
}

DemoApp::~DemoApp() {
    if (worker_.joinable())
        worker_.join();
    // The GIF's window lives on the display: hide it before the display goes.
    if (current_)
        current_->onHide();
}

void DemoApp::show(const std::shared_ptr<Screen>& screen) {
    if (current_)
        current_->onHide();
    current_ = screen;
    graphics_->setContext(screen);
    screen->onShow();
    graphics_->update();
}

void DemoApp::showIdle() {
    show(idle_);
}
void DemoApp::showMenu() {
    show(menu_);
}
void DemoApp::showLabels() {
    show(labels_);
}

void DemoApp::refreshHeader() {
    graphics_->updateHeader();
}

void DemoApp::startSale() {
    // The key handler must return promptly: printing runs on a thread of the application.
    if (worker_.joinable())
        worker_.join();
    worker_ = std::thread([this] { runReceipt(); });
}

void DemoApp::waitForSale() {
    if (worker_.joinable())
        worker_.join();
}

void DemoApp::runReceipt() {
    progress_->setProgress(0);
    show(receipt_);
    for (unsigned percent = 0; percent <= 100; percent += 10) {
        progress_->setProgress(percent);
        graphics_->update();
        if (progressObserver)
            progressObserver(percent);
        device::sleep(60);
    }
    device::beep(1500, 200);
    show(approved_);
}

} // namespace demo
