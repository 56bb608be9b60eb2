// Three hot paths whose instruction counts, unlike times, do not drift with the machine: one
// full-screen frame, one key into a currency prompt (handled and redrawn on this thread), and
// one setText of 400 characters in words at 300 pixels. Each runs once to warm the caches and
// once inside a function of its own, which `./run bench --instructions` has callgrind count.
#include "Support.hpp"

#include <cstdio>
#include <cstring>
#include <string>

namespace {

using bench::AmountScreen;
using bench::TenLabels;

std::string fourHundredCharacters() {
    std::string text;
    const char* words[] = {"Please", "present", "your", "card", "to", "the", "reader", "and", "wait"};
    for (int i = 0; text.size() < 400; ++i)
        text += std::string(text.empty() ? "" : " ") + words[i % 9];
    text.resize(400);
    return text;
}

// What callgrind counts: nothing but the call inside each.
__attribute__((noinline)) void measured_frame(ui::IGraphics& graphics, ui::IContainer& view) {
    graphics.render(&view);
}
__attribute__((noinline)) void measured_key(ui::IGraphics& graphics, AmountScreen& view) {
    view.type(device::input::KEY_7);
    graphics.render(&view);
}
__attribute__((noinline)) void measured_setText(ui::Label& label, const std::string& text) {
    label.setText(text);
}

} // namespace

int main(int argc, char** argv) {
    const std::string which = argc > 1 ? argv[1] : "";
    osal::host::setLogSink([](LogLevel, const std::string&) {});
    osal::host::setString(21, "Enter the amount of the sale");
    ui::UserInterface ui{GraphicsDeviceParams{0, 24}};
    ui::IGraphics& graphics = *ui::ServiceLocator::getGraphicsService();
    if (which == "frame") {
        TenLabels view;
        graphics.render(&view);
        measured_frame(graphics, view);
    } else if (which == "key") {
        AmountScreen view;
        view.type(device::input::KEY_7);
        graphics.render(&view);
        measured_key(graphics, view);
    } else if (which == "setText") {
        ui::Label label(0, 0, 300, 20);
        const std::string text = fourHundredCharacters();
        label.setText(text);
        measured_setText(label, text);
    } else {
        std::fprintf(stderr, "usage: %s frame|key|setText\n", argv[0]);
        return 2;
    }
    return 0;
}
