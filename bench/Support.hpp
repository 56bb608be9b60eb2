// What the benchmark programs share: a display session around one view, and the measurement of
// a key press until the frame that shows it is on the panel.
#pragma once

#include <ui/app/Screen.hpp>
#include <ui/ui.hpp>

#include <osal/host.hpp>
#include <xui_host.hpp>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <vector>

namespace bench {

// The full stack with a 24-pixel status bar, showing view.
template <class View> struct Session {
    Session() {
        osal::host::setLogSink([](LogLevel, const std::string&) {});
        ui.initialize();
        graphics = ui::ServiceLocator::getGraphicsService();
        graphics->setContext(view);
    }
    ui::UserInterface ui{GraphicsDeviceParams{0, 24}};
    ui::IGraphics* graphics = nullptr;
    std::shared_ptr<View> view = std::make_shared<View>();
};

// A full screen of ten labels; each key changes the first label and asks for a redraw.
class TenLabels : public app::Screen {
public:
    TenLabels() : Screen(0, 0, 320, 216) {
        for (unsigned i = 0; i < 10; ++i) {
            auto label = std::make_shared<ui::Label>(4, 2 + i * 21, 312, 20);
            label->setText("Line " + std::to_string(i) + ": card payment terminal");
            label->setAlignment(i % 2 ? ui::utils::Right : ui::utils::Left);
            add(label);
        }
    }
    void handleKeyPress(const device::input::Key& key) override {
        if (key == device::input::KEY_NONE)
            return;
        static_cast<ui::Label&>(*widgets[0]).setText("Key " + device::input::getKeyName(key));
        ui::ServiceLocator::getGraphicsService()->update();
    }
};

// The support library's prompt screen with an amount in pounds that starts over after six
// digits, so that every key changes the amount shown. Keys from the keypad ask for a redraw;
// type() does not, so that its caller draws on its own thread.
class AmountScreen : public app::PromptScreen {
public:
    AmountScreen()
        : PromptScreen(ui::input::createCurrencyPrompt(1, 99999999, 2, "\xC2\xA3", "."), 0, 0, 320, 216) {
        prompt().setText(21);
        ui::input::AlignCenter(prompt());
    }
    void handleKeyPress(const device::input::Key& key) override {
        startOverWhenFull();
        PromptScreen::handleKeyPress(key);
    }
    void type(const device::input::Key& key) {
        startOverWhenFull();
        prompt().injectKey(key);
    }

private:
    void startOverWhenFull() {
        if (prompt().getInputText().size() >= 6)
            prompt().clearAll();
    }
};

inline double percentile(std::vector<double> samples, double p) {
    std::sort(samples.begin(), samples.end());
    return samples[std::min(samples.size() - 1, size_t(p * double(samples.size() - 1) + 0.5))];
}

// Each iteration pushes key into the keypad and waits for the next frame presented; the view's
// key handler is expected to ask for a redraw. Reports the 50th and 99th percentiles.
inline void keyToPresent(benchmark::State& state, ui::IGraphics& graphics, int key) {
    std::vector<double> micros;
    for (auto _ : state) {
        const auto frames = xui_host::framesShown();
        const auto start = std::chrono::steady_clock::now();
        xui_host::pushKey(key);
        if (!xui_host::waitForFrames(frames + 1, std::chrono::seconds(5))) {
            state.SkipWithError("no frame presented");
            break;
        }
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(elapsed.count());
        micros.push_back(elapsed.count() * 1e6);
        graphics.waitForDraw();
    }
    if (!micros.empty()) {
        state.counters["p50_us"] = percentile(micros, 0.50);
        state.counters["p99_us"] = percentile(micros, 0.99);
    }
}

} // namespace bench
