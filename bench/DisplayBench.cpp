// The display core's hot paths: a key press until the frame showing its effect is on the
// panel, and one full-screen draw and present.
#include "Support.hpp"

namespace {

// A full screen of ten labels; each key changes the first label and asks for a redraw.
class TenLabels : public app::Screen {
public:
    TenLabels() : Screen(0, 0, 320, 216) {
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
};

using Session = bench::Session<TenLabels>;

void BM_KeyToPresent(benchmark::State& state) {
    Session s;
    bench::keyToPresent(state, *s.graphics, '5');
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
