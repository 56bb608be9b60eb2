// Text entry: a key into a currency prompt until the frame showing the new amount is on the
// panel, and the pieces of that path on their own.
#include "Support.hpp"

namespace {

const std::string pound = "\xC2\xA3";

using bench::AmountScreen;

void BM_KeyIntoCurrencyPromptToPresent(benchmark::State& state) {
    osal::host::setString(21, "Enter the amount of the sale");
    bench::Session<AmountScreen> s;
    bench::keyToPresent(state, *s.graphics, '7');
}
BENCHMARK(BM_KeyIntoCurrencyPromptToPresent)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond)
    ->Iterations(2000);

// The keypad thread's share: validate, format and re-wrap the label.
void BM_InjectKeyIntoCurrencyBox(benchmark::State& state) {
    bench::Session<AmountScreen> s;
    ui::TextBox<numeric_policy, format_policy> box(0, 40, 320, 20);
    box.setSymbol(pound);
    box.setSeparator(".");
    box.setExponent(2);
    for (auto _ : state) {
        box.clearAll();
        for (int i = 0; i < 6; ++i)
            box.injectKey(device::input::KEY_7);
    }
    state.SetItemsProcessed(state.iterations() * 6);
}
BENCHMARK(BM_InjectKeyIntoCurrencyBox)->Unit(benchmark::kMicrosecond);

void BM_MultiTapStep(benchmark::State& state) {
    default_alpha_numeric_policy<true, true, true> policy;
    std::string text;
    for (auto _ : state) {
        policy.processKey(text, device::input::KEY_7);
        if (text.size() > 16)
            text.clear();
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(BM_MultiTapStep);

} // namespace

BENCHMARK_MAIN();
