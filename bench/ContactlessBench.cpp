// The contactless indicator: how closely the success sequence keeps its configured times, and
// how soon a state change is on the header.
#include "Support.hpp"

#include <cmath>

namespace {

using Clock = std::chrono::steady_clock;

struct Indicator : bench::Session<app::Screen> {
    Indicator() { ui.enableContactless({0, 0, 100, 24}, {}); }
    static void set(ui::State state) { ui::ServiceLocator::updateContactlessIndicator(state); }
};

// The times at which the LED pattern changed, from the header redraws traced.
std::vector<std::pair<Clock::time_point, std::string>> ledChanges() {
    std::vector<std::pair<Clock::time_point, std::string>> out;
    std::string leds;
    for (const auto& call : xui_host::trace("CanvasDrawImg")) {
        leds += xui_host::imageFile(call.args.back()).find("green") != std::string::npos ? '1' : '0';
        if (leds.size() < 4)
            continue;
        if (out.empty() || out.back().second != leds)
            out.emplace_back(call.at, leds);
        leds.clear();
    }
    return out;
}

double millis(Clock::duration d) {
    return std::chrono::duration<double, std::milli>(d).count();
}

// Each iteration plays the default scheme-1 sequence from Ready and compares each step with
// its configured time: 100 ms, 100 ms, then 650 ms to dark; the caller blocked for 850 ms.
void BM_SuccessSequenceTiming(benchmark::State& state) {
    Indicator s;
    xui_host::setTracing(true);
    double sum = 0, worst = 0, blockedWorst = 0;
    int steps = 0;
    for (auto _ : state) {
        Indicator::set(ui::State::Ready);
        xui_host::waitForFrames(xui_host::framesShown() + 1, std::chrono::seconds(2));
        xui_host::clearTrace();
        const auto start = Clock::now();
        Indicator::set(ui::State::Success);
        const double blocked = millis(Clock::now() - start);
        state.SetIterationTime(blocked / 1000);
        blockedWorst = std::max(blockedWorst, std::abs(blocked - 850));
        const auto changes = ledChanges();
        if (changes.size() != 4) {
            state.SkipWithError("unexpected LED sequence");
            break;
        }
        const double expected[] = {100, 100, 650};
        for (int i = 0; i < 3; ++i) {
            const double error = std::abs(millis(changes[i + 1].first - changes[i].first) - expected[i]);
            sum += error;
            worst = std::max(worst, error);
            ++steps;
        }
    }
    xui_host::setTracing(false);
    state.counters["step_error_mean_ms"] = steps ? sum / steps : 0;
    state.counters["step_error_worst_ms"] = worst;
    state.counters["blocked_error_worst_ms"] = blockedWorst;
}
BENCHMARK(BM_SuccessSequenceTiming)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);

// A state change until the header frame that shows it: Off and Ready in turn.
void BM_StateChangeToHeaderFrame(benchmark::State& state) {
    Indicator s;
    std::vector<double> micros;
    bool ready = false;
    for (auto _ : state) {
        ready = !ready;
        const auto frames = xui_host::framesShown();
        const auto start = Clock::now();
        Indicator::set(ready ? ui::State::Ready : ui::State::Off);
        if (!xui_host::waitForFrames(frames + 1, std::chrono::seconds(2))) {
            state.SkipWithError("no header frame");
            break;
        }
        const std::chrono::duration<double> elapsed = Clock::now() - start;
        state.SetIterationTime(elapsed.count());
        micros.push_back(elapsed.count() * 1e6);
    }
    if (!micros.empty()) {
        state.counters["p50_us"] = bench::percentile(micros, 0.50);
        state.counters["p99_us"] = bench::percentile(micros, 0.99);
    }
}
BENCHMARK(BM_StateChangeToHeaderFrame)->UseManualTime()->Unit(benchmark::kMicrosecond)->Iterations(500);

} // namespace

BENCHMARK_MAIN();
