// Three hot paths whose instruction counts, unlike times, do not drift with the machine: one
// full-screen frame, one key into a currency prompt (handled and redrawn on this thread), and
// one setText of 400 characters in words at 300 pixels. Each runs once to warm the caches and
// once inside a function of its own, which `./run bench --instructions` has callgrind count.
#include <Screen.hpp>
#include <ui/ui.hpp>

#include <osal/host.hpp>
#include <xui_host.hpp>

#include <cstdio>
#include <cstring>
#include <string>

namespace {

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
};

// The support library's prompt screen; the key goes straight into its prompt, so that the
// redraw stays on this thread.
class AmountScreen : public app::PromptScreen {
public:
    AmountScreen()
        : PromptScreen(ui::input::createCurrencyPrompt(1, 99999999, 2, "\xC2\xA3", "."), 0, 0, 320, 216) {
        prompt().setText(21);
        ui::input::AlignCenter(prompt());
    }
    void type(const device::input::Key& key) {
        if (prompt().getInputText().size() >= 6)
            prompt().clearAll();
        prompt().injectKey(key);
    }
};

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
