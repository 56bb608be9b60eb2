// The display core's hot paths: a key press until the frame showing its effect is on the
// panel, and one full-screen draw and present.
#include "Support.hpp"

namespace {

using Session = bench::Session<bench::TenLabels>;

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
