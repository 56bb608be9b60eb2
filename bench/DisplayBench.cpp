// The display core's hot paths: a key press until the frame showing its effect is on the
// panel, and one full-screen draw and present.
#include <ui/ui.hpp>

#include <osal/host.hpp>
#include <xui_host.hpp>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <vector>

namespace {

// A full screen of ten labels; each key changes the first label and asks for a redraw.
class TenLabels : public ui::IContainer {
public:
    TenLabels() : IContainer(0, 0, 320, 216) {
        for (unsigned i = 0; i < 10; ++i) {
            auto label = std::make_shared<ui::Label>(4, 2 + i * 21, 312, 20);
            label->setText("Line " + std::to_string(i) + ": card payment terminal");
            label->setAlignment(i % 2 ? ui::utils::Right : ui::utils::Left);
            widgets.push_back(label);
        }
    }
    void draw(_XuiWindow* canvas) override { drawWidgets(canvas); }
    void handleKeyPress(const device::input::Key& key) override {
        if (key == device::input::KEY_NONE)
            return;
        static_cast<ui::Label&>(*widgets[0]).setText("Key " + device::input::getKeyName(key));
        ui::ServiceLocator::getGraphicsService()->update();
    }
    void onShow() override {}
    void onHide() override {}
    void onRefresh() override {}
    bool isFinished() const override { return false; }
};

struct Session {
    Session() {
        osal::host::setLogSink([](LogLevel, const std::string&) {});
        ui.initialize();
        graphics = ui::ServiceLocator::getGraphicsService();
        graphics->setContext(view);
    }
    ui::UserInterface ui{GraphicsDeviceParams{0, 24}};
    ui::IGraphics* graphics = nullptr;
    std::shared_ptr<TenLabels> view = std::make_shared<TenLabels>();
};

double percentile(std::vector<double> samples, double p) {
    std::sort(samples.begin(), samples.end());
    return samples[std::min(samples.size() - 1, size_t(p * double(samples.size() - 1) + 0.5))];
}

void BM_KeyToPresent(benchmark::State& state) {
    Session s;
    std::vector<double> micros;
    for (auto _ : state) {
        const auto frames = xui_host::framesShown();
        const auto start = std::chrono::steady_clock::now();
        xui_host::pushKey('5');
        if (!xui_host::waitForFrames(frames + 1, std::chrono::seconds(5))) {
            state.SkipWithError("no frame presented");
            break;
        }
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
        state.SetIterationTime(elapsed.count());
        micros.push_back(elapsed.count() * 1e6);
        s.graphics->waitForDraw();
    }
    if (!micros.empty()) {
        state.counters["p50_us"] = percentile(micros, 0.50);
        state.counters["p99_us"] = percentile(micros, 0.99);
    }
}
BENCHMARK(BM_KeyToPresent)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(2000);

void BM_FullScreenDrawAndPresent(benchmark::State& state) {
    Session s;
    for (auto _ : state)
        s.graphics->render(s.view.get());
}
BENCHMARK(BM_FullScreenDrawAndPresent)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
