// How the cost of what an application can make long grows with it: text a host sends (a
// merchant name, a URL, a token), the items of a list and a menu, the images in the cache.
// Each row runs at n = 100, 1,000 and 10,000 and reports, besides the time, the text
// measurements it made per input byte, counted at the graphics stand-in: on a terminal the
// vendor's measuring is the cost the library controls. The table at the end gives each row's
// growth from 1,000 to 10,000 against its budget.
#include <ui/ui.hpp>

#include <osal/host.hpp>
#include <xui_host.hpp>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <malloc.h>
#include <map>
#include <string>
#include <vector>

namespace {

constexpr double kMaxGrowth = 15.0; // from 1,000 to 10,000

struct Row {
    std::string name;
    std::vector<long> sizes;
    // Builds the input for n once; returns the operation to time.
    std::function<std::function<void()>(long n)> prepare;
    double budgetMs = 0; // for the largest size; 0: growth only
    long budgetAt = 0;   // the size the budget applies to
    double budgetAtMs = 0;
};

std::string asciiWord(long n) {
    std::string s;
    for (long i = 0; i < n; ++i)
        s += char('a' + i % 26);
    return s;
}

std::string utf8Word(long n) { // two-byte characters: é ü ñ ...
    static const char* chars[] = {"\xC3\xA9", "\xC3\xBC", "\xC3\xB1", "\xC3\xA7", "\xC3\xB6"};
    std::string s;
    for (long i = 0; s.size() + 2 <= size_t(n); ++i)
        s += chars[i % 5];
    return s;
}

std::string words(long n) {
    static const char* pool[] = {"Please",   "present", "your",    "card",     "to",
                                 "the",      "reader",  "and",     "wait",     "for",
                                 "approval", "of",      "payment", "terminal", "receipt"};
    std::string s;
    for (long i = 0; s.size() < size_t(n); ++i) {
        if (!s.empty())
            s += ' ';
        s += pool[i % 15];
    }
    s.resize(size_t(n));
    return s;
}

std::function<void()> labelSetText(const std::string& text, unsigned width) {
    auto label = std::make_shared<ui::Label>(0, 0, width, 20);
    return [label, text] { label->setText(text); };
}

std::function<void()> wrappable(const std::string& text, unsigned width) {
    return [text, width] {
        ui::WrappableLabel label(0, 0, width, 4'000'000, ui::utils::Left, ui::utils::Top);
        label.wrapText(text);
        benchmark::DoNotOptimize(label);
    };
}

std::vector<ui::ListItem> listItems(long n) {
    std::vector<ui::ListItem> items;
    items.reserve(size_t(n));
    for (long i = 0; i < n; ++i)
        items.emplace_back(0, 0, 0, 0,
                           ui::menu::MenuItem(int(i), "Transaction " + std::to_string(i), i % 7 == 3));
    return items;
}

// n small PNG files, written once per size.
std::vector<std::string> imageFiles(long n) {
    const auto dir = std::filesystem::temp_directory_path() / ("ui_bench_images_" + std::to_string(n));
    std::filesystem::create_directories(dir);
    std::ifstream in("res/images/ctls/leds/green.png", std::ios::binary);
    const std::string png((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    std::vector<std::string> paths;
    for (long i = 0; i < n; ++i) {
        const auto path = (dir / ("i" + std::to_string(i) + ".png")).string();
        if (!std::filesystem::exists(path))
            std::ofstream(path, std::ios::binary) << png;
        paths.push_back(path);
    }
    return paths;
}

XuiWindow* gCanvas = nullptr; // a full-screen canvas for the rows that draw

const std::vector<long> kSweep = {100, 1000, 10000};

std::vector<Row> rows() {
    std::vector<Row> r;
    for (unsigned width : {300u, 1u, 0u}) {
        const std::string px = std::to_string(width) + "px";
        r.push_back({"Label::setText word ascii " + px,
                     {100, 1000, 2000, 10000},
                     [width](long n) { return labelSetText(asciiWord(n), width); },
                     50,
                     width == 300 ? 2000 : 0,
                     width == 300 ? 5.0 : 0.0});
        r.push_back({"Label::setText word utf8 " + px, kSweep,
                     [width](long n) { return labelSetText(utf8Word(n), width); }, 50});
    }
    r.push_back({"Label::setText words 300px", kSweep, [](long n) { return labelSetText(words(n), 300); }});
    r.push_back(
        {"WrappableLabel::wrapText word 300px", kSweep, [](long n) { return wrappable(asciiWord(n), 300); }});
    r.push_back(
        {"WrappableLabel::wrapText words 300px", kSweep, [](long n) { return wrappable(words(n), 300); }});
    r.push_back({"ListBox of n items: build", kSweep, [](long n) {
                     auto items = listItems(n);
                     return std::function<void()>([items] {
                         ui::ListBox list(4, 4, 312, 208, items);
                         benchmark::DoNotOptimize(list);
                     });
                 }});
    r.push_back({"ListBox of n items: step and draw", kSweep, [](long n) {
                     auto list = std::make_shared<ui::ListBox>(4, 4, 312, 208, listItems(n));
                     return std::function<void()>([list] {
                         list->down();
                         list->draw(gCanvas);
                     });
                 }});
    r.push_back({"Menu of n items: fill and read", kSweep, [](long n) {
                     return std::function<void()>([n] {
                         ui::menu::Menu menu;
                         for (long i = 0; i < n; ++i)
                             menu.addMenuItem(ui::menu::MenuItem(int(i), "Item", false));
                         benchmark::DoNotOptimize(menu.getMenuItems());
                     });
                 }});
    r.push_back({"ImageResourceCache lookup among n", kSweep, [](long n) {
                     ImageResourceCache::clearCache();
                     const auto paths = imageFiles(n);
                     for (const auto& p : paths)
                         ImageResourceCache::getImage(p);
                     return std::function<void()>([paths] {
                         for (int i = 0; i < 100; ++i)
                             benchmark::DoNotOptimize(
                                 ImageResourceCache::getImage(paths[size_t(i * 7919) % paths.size()]));
                     });
                 }});
    return r;
}

struct Result {
    double us = 0;
    double calls = 0;    // text measurements per input byte
    double measured = 0; // bytes measured per input byte
};
std::map<std::string, std::map<long, Result>> results;

void run(benchmark::State& state, const Row* row) {
    const long n = state.range(0);
    const auto op = row->prepare(n);
    const auto before = xui_host::textMeasurements();
    for (auto _ : state)
        op();
    const auto after = xui_host::textMeasurements();
    const double per = double(state.iterations()) * double(n);
    state.counters["calls/B"] = double(after.calls - before.calls) / per;
    state.counters["measured/B"] = double(after.bytes - before.bytes) / per;
}

class Collector : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const auto& run : runs) {
            const std::string name = run.run_name.function_name;
            const long n = std::stol(run.run_name.args);
            Result& result = results[name][n];
            result.us = run.GetAdjustedRealTime(); // the rows' unit
            result.calls = run.counters.count("calls/B") ? double(run.counters.at("calls/B")) : 0;
            result.measured = run.counters.count("measured/B") ? double(run.counters.at("measured/B")) : 0;
        }
    }
};

// The pixel wordWrap and automaticFormatting(text, y) are defined to emit overlapping
// prefixes and rests at every index past the first break: their output itself grows
// exponentially with the text (about 1,200 lines for 100 bytes), so they are measured at 50
// and 100 bytes only and have no growth budget.
void BM_AutomaticFormatting(benchmark::State& state) {
    const std::string text = words(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(ui::automaticFormatting(text, 0));
}

} // namespace

int main(int argc, char** argv) {
    // Keep large blocks in the heap: otherwise glibc maps and unmaps a big vector at every
    // iteration and the rows measure page faults, not the library.
    mallopt(M_MMAP_THRESHOLD, 1 << 30);
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    osal::host::setLogSink([](LogLevel, const std::string&) {});
    // The device opens the display and publishes the screen size the layout helpers read.
    ui::UserInterface ui{GraphicsDeviceParams{0, 24}};
    gCanvas = XuiCreateCanvas(XuiRootCanvas(), 0, 0, 320, 216);

    static const std::vector<Row> table = rows();
    for (const auto& row : table) {
        auto* b = benchmark::RegisterBenchmark(row.name.c_str(), run, &row);
        for (long n : row.sizes)
            b->Arg(n);
        b->Unit(benchmark::kMicrosecond);
    }
    benchmark::RegisterBenchmark("automaticFormatting (exempt: exponential by definition)",
                                 BM_AutomaticFormatting)
        ->Arg(50)
        ->Arg(100)
        ->Unit(benchmark::kMicrosecond);

    benchmark::Initialize(&argc, argv);
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector);

    std::printf("\n%-40s %11s %11s %11s %8s %15s  %s\n", "growth (ms)", "100", "1,000", "10,000", "x10",
                "calls, bytes/B", "budget");
    bool over = false;
    for (const auto& row : table) {
        const auto found = results.find(row.name);
        if (found == results.end())
            continue;
        const auto& at = found->second;
        auto ms = [&](long n) { return at.count(n) ? at.at(n).us / 1000 : -1.0; };
        std::string verdict;
        const double growth = ms(1000) > 0 && ms(10000) > 0 ? ms(10000) / ms(1000) : -1;
        if (growth >= 0)
            verdict += growth <= kMaxGrowth ? "growth OK" : "growth OVER";
        if (row.budgetMs > 0 && ms(10000) >= 0)
            verdict += std::string(", 10,000 < ") + std::to_string(int(row.budgetMs)) + " ms " +
                       (ms(10000) < row.budgetMs ? "OK" : "OVER");
        if (row.budgetAt > 0 && ms(row.budgetAt) >= 0)
            verdict += ", " + std::to_string(row.budgetAt) + " < " + std::to_string(int(row.budgetAtMs)) +
                       " ms " + (ms(row.budgetAt) < row.budgetAtMs ? "OK" : "OVER");
        over = over || verdict.find("OVER") != std::string::npos;
        const Result last = at.count(10000) ? at.at(10000) : Result{};
        std::printf("%-40s %11.4f %11.4f %11.4f %8.1f %6.2f, %6.2f  %s\n", row.name.c_str(), ms(100),
                    ms(1000), ms(10000), growth, last.calls, last.measured, verdict.c_str());
    }
    std::printf("%s\n", over ? "Some rows are OVER their budget." : "Every row is within its budget.");
    benchmark::Shutdown();
    return 0;
}
