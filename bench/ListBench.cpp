// Menus on a full screen: drawing a page of list rows, and scrolling through a long menu.
#include <ui/ui.hpp>

#include <xui_host.hpp>

#include <benchmark/benchmark.h>

namespace {

struct Screen {
    Screen() {
        char rotate[] = "ROTATE=0", bar[] = "STATUSBAR=24";
        char* argv[] = {rotate, bar};
        XuiOpen(2, argv);
        canvas = XuiCreateCanvas(XuiRootCanvas(), 0, 0, 320, 216);
        XuiCanvasSetBackground(canvas, XUI_BG_NORMAL, nullptr, 0xFF0F1C2E);
    }
    ~Screen() { XuiClose(); }

    static std::vector<ui::ListItem> items(int count) {
        std::vector<ui::ListItem> out;
        for (int i = 0; i < count; ++i)
            out.emplace_back(
                0, 0, 312, 0,
                ui::menu::MenuItem(i, "Transaction " + std::to_string(i) + " - card sale", i % 7 == 3));
        return out;
    }

    XuiWindow* canvas;
};

void BM_DrawFullScreenOfRows(benchmark::State& state) {
    Screen screen;
    ui::ListBox list(4, 4, 312, 208, Screen::items(20)); // eight rows
    for (auto _ : state) {
        XuiClearArea(screen.canvas, 0, 0, 320, 216);
        list.draw(screen.canvas);
    }
}
BENCHMARK(BM_DrawFullScreenOfRows)->Unit(benchmark::kMicrosecond);

// One pass down a 100-item menu, redrawing the page after each step as a view would.
void BM_ScrollThroughHundredItems(benchmark::State& state) {
    Screen screen;
    ui::ListBox list(4, 4, 312, 208, Screen::items(100));
    for (auto _ : state) {
        for (int i = 0; i < 100; ++i) {
            list.down();
            XuiClearArea(screen.canvas, 0, 0, 320, 216);
            list.draw(screen.canvas);
        }
    }
    state.SetItemsProcessed(state.iterations() * 100);
}
BENCHMARK(BM_ScrollThroughHundredItems)->Unit(benchmark::kMillisecond);

// The selection logic alone, without drawing.
void BM_ScrollSelectionOnly(benchmark::State& state) {
    Screen screen;
    ui::ListBox list(4, 4, 312, 208, Screen::items(100));
    for (auto _ : state)
        list.down();
}
BENCHMARK(BM_ScrollSelectionOnly);

} // namespace

BENCHMARK_MAIN();
