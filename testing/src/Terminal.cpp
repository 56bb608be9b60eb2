#include "ui/kit/Terminal.hpp"
#include "ui/kit/Session.hpp"

#include <osal/host.hpp>

#include <stdexcept>
#include <thread>

namespace ui::kit {

Terminal::Terminal(const TerminalOptions& options)
    : options_(options), platform_(std::make_unique<Platform>()) {
    xui_host::setPanelSize(options.panelWidth, options.panelHeight);
    osal::host::pinClock(options.clock);
    if (!options.strings.empty() && !osal::host::loadStrings(options.strings))
        throw std::runtime_error("Terminal: cannot read the strings " + options.strings);
    osal::host::setPseudoLocalization(options.pseudoLocalization);
    osal::host::useVirtualTime(options.virtualTime);
    recorder_ = std::make_unique<Recorder>();
    startMs_ = steadyMs(Clock::now());
    ui_ = std::make_unique<ui::UserInterface>(GraphicsDeviceParams{options.rotate, options.statusbar});
    ui_->initialize();
    graphics_ = ui::ServiceLocator::getGraphicsService();
    if (!graphics_)
        throw std::runtime_error("Terminal: the display did not open");
    if (options.statusHeader) {
        header_ = std::make_shared<app::StatusHeader>();
        graphics_->getWindow()->setHeader(header_);
    }
}

Terminal::~Terminal() {
    ui_.reset();
    recorder_.reset();
    platform_.reset();
}

void Terminal::show(const std::shared_ptr<ui::IContainer>& view) {
    graphics_->setContext(view);
    settle();
}

void Terminal::press(int xuiKeyCode) {
    xui_host::pushKey(xuiKeyCode);
    if (!xui_host::waitForKeysHandled(options_.timeout))
        throw std::runtime_error("Terminal: the keypad took no key in " +
                                 std::to_string(options_.timeout.count()) + " ms");
}

void Terminal::type(const std::string& digits, std::chrono::milliseconds pause) {
    for (char digit : digits) {
        press(digit);
        letTimePass(pause);
    }
}

void Terminal::letTimePass(std::chrono::milliseconds time) {
    if (time.count() <= 0)
        return;
    if (options_.virtualTime)
        osal::host::advanceTime(time);
    else
        std::this_thread::sleep_for(time);
}

app::StatusHeader& Terminal::header() {
    if (!header_)
        throw std::logic_error("Terminal: no status header (TerminalOptions::statusHeader)");
    return *header_;
}

void Terminal::settle() {
    // Synchronous: a header drawn on another thread is finished first, under the same locks.
    graphics_->updateHeader();
    if (!presentNewFrame(*graphics_, options_.timeout))
        throw std::runtime_error("Terminal: no frame presented in " +
                                 std::to_string(options_.timeout.count()) + " ms; is a view set?");
}

xui_host::Pixels Terminal::screen() {
    settle();
    return xui_host::screen();
}

std::vector<DrawnText> Terminal::texts() {
    xui_host::setTracing(true);
    settle(); // what was asked for before is drawn: the next settle draws one frame
    xui_host::clearTrace();
    settle();
    return drawnTexts(xui_host::trace("CanvasDrawText"));
}

std::vector<DrawnText> drawnTexts(const std::vector<xui_host::Call>& calls) {
    std::vector<DrawnText> out;
    for (const auto& call : calls) {
        if (call.function != "CanvasDrawText" || call.args.size() < 8)
            continue;
        // The trace quotes the text and escapes quotes and backslashes in it.
        const std::string& quoted = call.args[7];
        std::string text;
        for (size_t i = 1; i + 1 < quoted.size(); ++i) {
            if (quoted[i] == '\\')
                ++i;
            text += quoted[i];
        }
        out.push_back({text, unsigned(std::stoul(call.args[1])), unsigned(std::stoul(call.args[2])),
                       uint32_t(std::stoul(call.args[6], nullptr, 16))});
    }
    return out;
}

std::string Terminal::leds() {
    recorder_->collect();
    return recorder_->leds();
}

bool Terminal::waitForLeds(const std::string& pattern) {
    return recorder_->waitForLeds(pattern, options_.timeout);
}

bool Terminal::waitForTones(size_t count) {
    return recorder_->waitForTones(count, options_.timeout);
}

std::vector<Event> Terminal::timeline() {
    for (auto& [at, what] : recorder_->take())
        events_.push_back({at - startMs_, std::move(what)});
    return events_;
}

void Terminal::tap(bool approved) {
    if (!onTap_)
        throw std::runtime_error("Terminal: a card was tapped, but no handler takes it (see onTap)");
    onTap_(approved);
}

} // namespace ui::kit
