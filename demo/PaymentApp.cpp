#include "PaymentApp.hpp"

#include <osal/device.hpp>
#include <osal/localization.hpp>
#include <osal/resource.hpp>

namespace demo {

using device::input::Key;
using ui::State;

namespace {

const std::string kRes = "res/";
constexpr unsigned kHintHeight = 28; // two lines of 14 pixels

// String identifiers of res/strings/<language>.txt.
enum Text : StringId {
    Welcome = 1,
    SaleTitle = 2,
    RefundTitle = 3,
    Reports = 4,
    SettingsTitle = 5,
    Approved = 8,
    Declined = 9,
    PleaseWait = 10,
    PrintingReceipt = 11,
    RemoveCard = 12,
    ThankYou = 13,
    MainMenu = 14,
    AboutTitle = 20,
    EnterSaleAmount = 21,
    EnterRefundAmount = 22,
    EnterDate = 23,
    EnterTime = 24,
    EnterAddress = 25,
    EnterMerchant = 26,
    EnterPin = 27,
    InvalidEntry = 30,
    Processing = 32,
    AddressTitle = 34,
    DateTitle = 35,
    TimeTitle = 36,
    MerchantTitle = 37,
    PinTitle = 38,
    Saved = 39,
    PresentCard = 40,
    MenuHint = 41,
    AppName = 42,
    AmountAboveZero = 43,
    EntryHint = 44,
    NotAccepted = 45,
    SettingsHint = 47,
    BackHint = 48,
    DoneHint = 49,
    LibraryName = 50,
    IndicatorName = 51,
};

std::string text(StringId id) {
    try {
        return Localization::getLocalizedString(id);
    } catch (const LocalizationException&) {
        return "#" + std::to_string(id); // visible, and the screen still works
    }
}

unsigned screenWidth() {
    return static_cast<unsigned>(GetMainCanvasWidth());
}
unsigned screenHeight() {
    return static_cast<unsigned>(GetMainCanvasHeight());
}

// A centred label across the screen, or across width from x: its lines are made for that width.
std::shared_ptr<ui::Label> label(unsigned y, unsigned height, const std::string& s, unsigned size = 20,
                                 resource::BrandingColorId colour = resource::BRAND_TEXT, unsigned x = 0,
                                 unsigned width = screenWidth()) {
    auto l = std::make_shared<ui::Label>(x, y, width, height);
    l->setText(s);
    l->setHeight(height);
    l->setAlignment(ui::utils::Centre);
    l->setFontSize(size);
    l->setColor(resource::ResourceMapping::getResourceColor(colour));
    return l;
}

// The key help at the foot of a screen. A label makes one space of a run of spaces, so each
// hint the text holds ("ENTER: confirm   CANCEL: back") is a label of its own, centred in its
// share of the width, with room for a second line: lines are made at 20-pixel measures, so a
// long translation wraps even where its 14-pixel letters would fit.
std::shared_ptr<app::Screen> hint(const std::string& s) {
    std::vector<std::string> parts;
    for (std::size_t start = 0; start < s.size();) {
        const std::size_t gap = s.find("  ", start);
        const std::size_t end = gap == std::string::npos ? s.size() : gap;
        if (end > start)
            parts.push_back(s.substr(start, end - start));
        start = s.find_first_not_of(' ', end);
        if (start == std::string::npos)
            break;
    }
    auto line = std::make_shared<app::Screen>(0, screenHeight() - kHintHeight, screenWidth(), kHintHeight);
    const unsigned cell = parts.empty() ? screenWidth() : screenWidth() / unsigned(parts.size());
    for (std::size_t i = 0; i < parts.size(); ++i)
        line->add(label(screenHeight() - kHintHeight, kHintHeight, parts[i], 14,
                        resource::BRAND_SECONDARY_TEXT, unsigned(i) * cell, cell));
    return line;
}

std::shared_ptr<ui::Title> title(StringId caption) {
    return std::make_shared<ui::Title>(caption, nullptr);
}

std::shared_ptr<ui::ListBox> list(const std::vector<std::pair<std::string, bool>>& entries) {
    std::vector<ui::ListItem> items;
    for (size_t i = 0; i < entries.size(); ++i)
        items.emplace_back(0, 0, screenWidth() - 16, 0,
                           ui::menu::MenuItem(int(i), entries[i].first, entries[i].second));
    return std::make_shared<ui::ListBox>(8, 28, screenWidth() - 16, 160, items);
}

} // namespace

// A screen of the demo. Its keys are handed to the application's thread (see AppThread), so
// that what they start may block there and may change the indicator's state.
class DemoScreen : public app::Screen {
public:
    explicit DemoScreen(PaymentApp& app) : app_(app) {}

    void handleKeyPress(const Key& key) override {
        if (key == device::input::KEY_NONE)
            return;
        app_.received([this, key] {
            if (onKey)
                onKey(key);
        });
    }
    void onShow() override {
        if (gif)
            gif->visible(true);
    }
    void onHide() override {
        if (gif)
            gif->visible(false);
    }

    std::function<void(Key)> onKey; // on the application's thread
    std::shared_ptr<ui::GIF> gif;   // shown only while the screen is

private:
    PaymentApp& app_;
};

PaymentApp::PaymentApp(const AppOptions& options) : ui_(options.display), moment_(options.moment) {
    ui_.initialize();
    graphics_ = ui::ServiceLocator::getGraphicsService();
    header_ = std::make_shared<app::StatusHeader>(kRes);
    header_->setBattery(battery_);
    header_->setEthernet(ethernet_);
    header_->setSignal(signal_);
    header_->setFlightMode(flight_);
    header_->setOfflineCount(offline_);
    header_->setUpdateAvailable(update_);
    graphics_->getWindow()->setHeader(header_);
    ui_.enableContactless(app::StatusHeader::kIndicatorArea, options.indicator);
    thread_.post([this] { showIdle(); });
    thread_.waitUntilIdle();
}

PaymentApp::~PaymentApp() {
    // No key may reach a screen once the application's thread is gone: unbinding waits for a
    // key being handled.
    if (ui::input::KeyBoard* keys = ui::ServiceLocator::getInputService())
        keys->bind(nullptr);
    thread_.post([this] {
        if (current_)
            current_->onHide(); // a GIF's window lives on the display: close it first
    });
    thread_.waitUntilIdle();
}

void PaymentApp::received(std::function<void()> work) {
    thread_.post(std::move(work));
    ++keysReceived_;
}

void PaymentApp::indicate(ui::State state) {
    indicated_ = state;
    ui::ServiceLocator::updateContactlessIndicator(state);
}

void PaymentApp::moment(const std::string& what) {
    if (moment_)
        moment_(what);
}

void PaymentApp::show(const std::shared_ptr<DemoScreen>& screen) {
    if (current_)
        current_->onHide();
    current_ = screen;
    if (screen != idle_)
        idle_.reset();
    graphics_->setContext(screen);
    screen->onShow();
    graphics_->update();
}

void PaymentApp::header(const std::function<void(app::StatusHeader&)>& change) {
    thread_.post([this, change] {
        change(*header_);
        graphics_->updateHeader();
    });
}

void PaymentApp::tapCard(bool approved) {
    thread_.post([this, approved] {
        if (awaitingCard_)
            authorise(approved);
        else if (idle_ && current_ == idle_)
            enterAmount(false); // the idle screen invites a card: a sale it is
    });
}

void PaymentApp::setBattery(int level) {
    battery_ = level;
    header([level](app::StatusHeader& h) { h.setBattery(level); });
}
void PaymentApp::setEthernet(bool connected) {
    ethernet_ = connected;
    header([connected](app::StatusHeader& h) { h.setEthernet(connected); });
}
// In flight mode the radio is off: the bars go dark, whatever the last reading was.
void PaymentApp::setSignal(unsigned percent) {
    signal_ = percent;
    header([this, percent](app::StatusHeader& h) { h.setSignal(flight_ ? 0 : percent); });
}
void PaymentApp::setFlightMode(bool on) {
    flight_ = on;
    header([this, on](app::StatusHeader& h) {
        h.setFlightMode(on);
        h.setSignal(on ? 0 : signal_.load());
    });
}
void PaymentApp::setOfflineCount(int count) {
    offline_ = count;
    header([count](app::StatusHeader& h) { h.setOfflineCount(count); });
}
void PaymentApp::setUpdateAvailable(bool available) {
    update_ = available;
    header([available](app::StatusHeader& h) { h.setUpdateAvailable(available); });
}
void PaymentApp::refreshHeader() {
    header([](app::StatusHeader&) {});
}

void PaymentApp::showIdle() {
    amount_.clear();
    awaitingCard_ = false;
    auto screen = std::make_shared<DemoScreen>(*this);
    screen->add(label(8, 30, text(Welcome), 28));
    screen->gif = std::make_shared<ui::GIF>(kRes + "images/demo/present_card.gif", (screenWidth() - 120) / 2,
                                            44, 120, 90);
    screen->add(screen->gif);
    auto prompt = std::make_shared<ui::WrappableLabel>(10, 140, screenWidth() - 20, 40, ui::utils::Centre,
                                                       ui::utils::Centre);
    prompt->wrapText(text(PresentCard));
    screen->add(prompt);
    screen->add(hint(text(MenuHint)));
    screen->onKey = [this](Key key) {
        if (key == device::input::KEY_ENTER || key == device::input::KEY_MENU)
            showMenu();
        else if (key == device::input::KEY_POWER)
            finished_ = true;
    };
    idle_ = screen;
    show(screen);
    indicate(State::Idle);
}

void PaymentApp::showMenu() {
    auto screen = std::make_shared<DemoScreen>(*this);
    screen->add(title(MainMenu));
    auto menu = list({{text(SaleTitle), false},
                      {text(RefundTitle), false},
                      {text(Reports), true}, // not on this terminal
                      {text(SettingsTitle), false},
                      {text(AboutTitle), false}});
    screen->add(menu);
    screen->onKey = [this, menu](Key key) {
        switch (key) {
        case device::input::KEY_UP:
            menu->up();
            graphics_->update();
            break;
        case device::input::KEY_DOWN:
            menu->down();
            graphics_->update();
            break;
        case device::input::KEY_ENTER: {
            const int chosen =
                std::static_pointer_cast<ui::ListItem>(menu->getSelectedElement())->getMenuItem().getId();
            if (chosen == 0 || chosen == 1)
                enterAmount(chosen == 1);
            else if (chosen == 3)
                showSettings("", 0);
            else if (chosen == 4)
                showAbout();
            break;
        }
        case device::input::KEY_CANCEL:
            showIdle();
            break;
        default:
            break;
        }
    };
    show(screen);
}

namespace {

std::shared_ptr<ui::Label> errorLine(StringId message) {
    return label(GetMainCanvasHeight() - 48, 20, text(message), 20, resource::BRAND_ERROR);
}

} // namespace

void PaymentApp::enterAmount(bool refund) {
    refund_ = refund;
    auto screen = std::make_shared<DemoScreen>(*this);
    screen->add(title(refund ? RefundTitle : SaleTitle));
    // A sale in the terminal's currency without limit; a refund up to 999.99 in the same currency.
    ui::input::InputPrompt prompt;
    if (refund) {
        const localization::Currency currency = Localization::getDefaultCurrency();
        prompt = ui::input::createCurrencyPrompt(1, 99999, static_cast<unsigned char>(currency.exponent),
                                                 currency.symbol, currency.separator);
    } else {
        prompt = ui::input::createDefaultCurrencyPrompt();
    }
    prompt.setText(refund ? EnterRefundAmount : EnterSaleAmount);
    ui::input::AlignCenter(prompt);
    auto entry = std::make_shared<app::PromptScreen>(prompt);
    entry->setErrorLine(errorLine(AmountAboveZero));
    entry->onEnter = [this](const std::string& amount) {
        if (amount.find_first_not_of('0') == std::string::npos)
            return false; // nothing to charge
        presentCard(amount);
        return true;
    };
    entry->onCancel = [this] { showMenu(); };
    screen->add(entry);
    screen->add(hint(text(EntryHint)));
    screen->onKey = [entry](Key key) { entry->press(key); };
    show(screen);
}

void PaymentApp::presentCard(const std::string& amount) {
    amount_ = amount;
    auto screen = std::make_shared<DemoScreen>(*this);
    screen->add(title(refund_ ? RefundTitle : SaleTitle));
    screen->add(label(24, 34, default_format_policy().formatValue(amount), 32));
    screen->gif = std::make_shared<ui::GIF>(kRes + "images/demo/present_card.gif", (screenWidth() - 120) / 2,
                                            58, 120, 90);
    screen->add(screen->gif);
    // Below the picture's window, which covers what is drawn under it, and above the key help:
    // room for two lines of 16 pixels, as a long translation of the invitation needs.
    screen->add(label(148, 36, text(PresentCard), 16));
    screen->add(hint(text(BackHint)));
    screen->onKey = [this](Key key) {
        if (key == device::input::KEY_CANCEL)
            showIdle();
    };
    show(screen);
    awaitingCard_ = true;
    indicate(State::Ready);
}

void PaymentApp::authorise(bool approved) {
    awaitingCard_ = false;
    auto waiting = std::make_shared<DemoScreen>(*this);
    waiting->add(title(refund_ ? RefundTitle : SaleTitle));
    waiting->add(label(80, 30, text(Processing), 28));
    waiting->add(label(120, 20, text(PleaseWait)));
    show(waiting);
    indicate(State::Processing);
    moment("processing");
    device::sleep(300); // the host's answer

    // Everything the result screen will show is on it from the start, hidden until its time:
    // the rendering thread may be drawing the screen while it changes.
    auto result = std::make_shared<DemoScreen>(*this);
    result->add(title(refund_ ? RefundTitle : SaleTitle));
    result->add(label(40, 40, text(approved ? Approved : Declined), 36,
                      approved ? resource::BRAND_PROGRESS_FULL : resource::BRAND_ERROR));
    result->add(label(84, 30, default_format_policy().formatValue(amount_), 24));
    amount_.clear();
    auto detail = label(124, 20, text(approved ? PrintingReceipt : NotAccepted));
    result->add(detail);
    auto bar = std::make_shared<ui::ProgressBar>(
        (screenWidth() - 200) / 2, 150, 200, 16,
        resource::ResourceMapping::getResourceColor(resource::BRAND_PROGRESS_FRAME),
        resource::ResourceMapping::getResourceColor(resource::BRAND_PROGRESS_BACKGROUND),
        resource::ResourceMapping::getResourceColor(resource::BRAND_PROGRESS_FILL),
        resource::ResourceMapping::getResourceColor(resource::BRAND_PROGRESS_FULL));
    bar->setVisible(false);
    result->add(bar);
    auto done = hint(text(DoneHint));
    result->add(done);
    result->onKey = [this](Key key) {
        if (key == device::input::KEY_ENTER || key == device::input::KEY_CANCEL)
            showIdle();
    };
    if (!approved) {
        show(result);
        // Plays the alert tone before the state change returns.
        indicate(State::Error);
        return;
    }
    detail->setVisible(false);
    done->setVisible(false);
    show(result);
    // Blocks here, on the application's thread, until the LED sequence has played.
    indicate(State::Success);
    moment("approved");
    detail->setVisible(true);
    bar->setVisible(true);
    for (unsigned percent = 0; percent <= 100; percent += 20) {
        bar->setProgress(percent);
        graphics_->update();
        if (percent == 40)
            moment("printing");
        device::sleep(60);
    }
    detail->setText(text(RemoveCard) + " - " + text(ThankYou));
    bar->setVisible(false);
    done->setVisible(true);
    graphics_->update();
}

void PaymentApp::showSettings(const std::string& status, int selected) {
    auto screen = std::make_shared<DemoScreen>(*this);
    screen->add(title(SettingsTitle));
    auto menu = list({{text(AddressTitle), false},
                      {text(DateTitle), false},
                      {text(TimeTitle), false},
                      {text(MerchantTitle), false},
                      {text(PinTitle), false}});
    for (int i = 0; i < selected; ++i)
        menu->down();
    screen->add(menu);
    // Two lines above the key help: what was saved, and its value, may need both.
    if (!status.empty())
        screen->add(label(screenHeight() - kHintHeight - 36, 36, status, 16, resource::BRAND_ACCENT_TEXT));
    screen->add(hint(text(SettingsHint)));
    screen->onKey = [this, menu](Key key) {
        if (key == device::input::KEY_UP || key == device::input::KEY_DOWN) {
            key == device::input::KEY_UP ? menu->up() : menu->down();
            graphics_->update();
        } else if (key == device::input::KEY_ENTER) {
            const int chosen =
                std::static_pointer_cast<ui::ListItem>(menu->getSelectedElement())->getMenuItem().getId();
            editSetting(static_cast<Setting>(chosen));
        } else if (key == device::input::KEY_CANCEL) {
            showMenu();
        }
    };
    show(screen);
}

void PaymentApp::editSetting(Setting setting) {
    struct Kind {
        StringId caption, message;
        std::function<ui::input::InputPrompt()> make;
        std::function<std::string(const std::string&)> shown; // the value as the list shows it
    };
    static const std::map<Setting, Kind> kinds = {
        {Setting::Address,
         {AddressTitle, EnterAddress, [] { return ui::input::createNumericIPPrompt(); },
          [](const std::string& v) { return FormatIPAdressPolicy().formatValue(v); }}},
        {Setting::Date,
         {DateTitle, EnterDate, [] { return ui::input::createNumericDatePrompt(); },
          [](const std::string& v) { return FormatDatePolicy().formatValue(v); }}},
        {Setting::Time,
         {TimeTitle, EnterTime, [] { return ui::input::createNumericTimePrompt(); },
          [](const std::string& v) { return FormatTimePolicy().formatValue(v); }}},
        // Letters, digits and symbols by multi-tap, 1 to 20 characters.
        {Setting::Merchant,
         {MerchantTitle, EnterMerchant, [] { return ui::input::createTextPrompt(true, true, true, 1, 20); },
          [](const std::string& v) { return v; }}},
        // Four to six digits, never shown.
        {Setting::Pin,
         {PinTitle, EnterPin,
          [] {
              auto pin = ui::input::createTextPrompt(true, false, false, 4, 6);
              pin.maskPrompt(true);
              return pin;
          },
          [](const std::string&) { return std::string(); }}},
    };
    const Kind& kind = kinds.at(setting);
    auto screen = std::make_shared<DemoScreen>(*this);
    screen->add(title(kind.caption));
    ui::input::InputPrompt prompt = kind.make();
    prompt.setText(kind.message);
    ui::input::AlignCenter(prompt);
    auto entry = std::make_shared<app::PromptScreen>(prompt);
    entry->setErrorLine(errorLine(InvalidEntry));
    entry->onEnter = [this, setting, &kind](const std::string& value) {
        settings_[setting] = value;
        showSettings(text(Saved) + ": " + text(kind.caption) + " " + kind.shown(value), int(setting));
        return true;
    };
    entry->onCancel = [this, setting] { showSettings("", int(setting)); };
    screen->add(entry);
    screen->add(hint(text(EntryHint)));
    screen->onKey = [entry](Key key) { entry->press(key); };
    show(screen);
}

void PaymentApp::showAbout() {
    auto screen = std::make_shared<DemoScreen>(*this);
    screen->add(title(AboutTitle));
    // The name may take two lines in a long translation.
    screen->add(label(34, 48, text(AppName), 22));
    screen->add(label(88, 20, text(LibraryName) + " " + getUserInterfaceVersion()));
    screen->add(label(114, 40, text(IndicatorName), 16, resource::BRAND_SECONDARY_TEXT));
    screen->add(hint(text(BackHint)));
    screen->onKey = [this](Key key) {
        if (key == device::input::KEY_CANCEL || key == device::input::KEY_ENTER)
            showMenu();
    };
    show(screen);
}

} // namespace demo
