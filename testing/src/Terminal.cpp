#include "ui/kit/Terminal.hpp"
#include "ui/session/Session.hpp"

#include <osal/host.hpp>

#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <thread>

namespace ui::kit {

namespace {

std::string stringsFile(const TerminalOptions& options) {
    if (options.language.empty())
        return options.strings;
    const std::filesystem::path beside = std::filesystem::path(options.strings).parent_path();
    return (beside / (options.language + ".txt")).string();
}

std::string reportLine(const osal::host::ExceptionReport& report) {
    return report.source + ":" + std::to_string(report.line) + ": " +
           (report.what.empty() ? std::string("an exception of unknown type") : report.what);
}

} // namespace

Terminal::Terminal(const TerminalOptions& options)
    : options_(options), platform_(std::make_unique<Platform>()) {
    xui_host::setPanelSize(options.panelWidth, options.panelHeight);
    osal::host::pinClock(options.clock);
    const std::string strings = stringsFile(options);
    if (!strings.empty() && !osal::host::loadStrings(strings))
        throw std::runtime_error("Terminal: cannot read the strings " + strings);
    osal::host::setPseudoLocalization(options.pseudoLocalization);
    osal::host::useVirtualTime(options.virtualTime);
    recorder_ = std::make_unique<session::Recorder>();
    fitCheck_ = std::make_shared<session::FitCheck>();
    startMs_ = session::steadyMs(session::Clock::now());
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
    for (const std::string& exception : takeExceptions())
        ADD_FAILURE() << "the library caught and logged an exception: " << exception
                      << " (a test that expects one takes it with takeExceptions())";
    fitCheck_.reset();
    recorder_.reset();
    platform_.reset();
}

std::vector<std::string> Terminal::takeExceptions() {
    std::vector<std::string> out;
    const auto reports = osal::host::exceptionReports();
    for (size_t i = exceptionsTaken_; i < reports.size(); ++i)
        out.push_back(reportLine(reports[i]));
    exceptionsTaken_ = reports.size();
    return out;
}

std::string Terminal::loggedExceptions() const {
    std::string out;
    const auto reports = osal::host::exceptionReports();
    for (size_t i = exceptionsTaken_; i < reports.size(); ++i)
        out += (out.empty() ? "" : "; ") + reportLine(reports[i]);
    return out;
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
    if (session::presentNewFrame(*graphics_, options_.timeout))
        return;
    const std::string logged = loggedExceptions();
    throw std::runtime_error(
        "Terminal: no frame presented in " + std::to_string(options_.timeout.count()) + " ms; " +
        (logged.empty() ? std::string("is a view set?") : "the library logged " + logged));
}

xui_host::Pixels Terminal::screen() {
    settle();
    graphics_->waitForDraw(); // the rest of the present: the other canvas hidden
    return xui_host::screen();
}

xui_host::Frame Terminal::frame() {
    settle();
    return xui_host::lastMainFrame();
}

Texts Terminal::texts() {
    auto shown = std::make_shared<const xui_host::Frame>(frame());
    Texts out;
    for (const auto* calls : {&shown->headerCalls, &shown->calls})
        for (auto& text : session::drawnTexts(*calls))
            out.push_back(std::move(text));
    // Worked out only when a test asks, which is when a text it looked for is missing.
    out.howShown = [check = fitCheck_, shown](const std::string& text) {
        return check->howShown(*shown, text);
    };
    return out;
}

std::vector<session::Overflow> Terminal::fit() {
    return fitCheck_->check(frame());
}

std::string Terminal::leds() {
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
