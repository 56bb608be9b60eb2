// The example in the simulator: in a window (--window: the keyboard as keypad, T taps an
// approved card, D a declined one) or headless (--script: a session played and recorded).
#include "PayApp.hpp"

#include <ui/simulator/Simulator.hpp>

#include <memory>

namespace {

// What a session's lines and the window's keys reach in the example: the display and the card
// reader. Its header has no state of its own to change.
class PaySimulation : public ui::session::Application {
public:
    explicit PaySimulation(const ui::simulator::Context& context) : app_(options(context)) {}

    ui::IGraphics& graphics() override { return app_.graphics(); }
    void tapCard(bool approved) override { app_.cardTapped(approved); }
    void waitUntilIdle() override { app_.waitUntilIdle(); }

private:
    static pay::PayOptions options(const ui::simulator::Context& context) {
        pay::PayOptions options;
        options.display = context.display;
        options.indicator = context.indicator;
        return options;
    }

    pay::PayApp app_;
};

} // namespace

int main(int argc, char** argv) {
    ui::simulator::Program program;
    program.name = "pay-sim";
    program.description = "The example payment application on the UI library, in the simulator.";
    program.defaultScript = "sale.session";
    program.defaultOut = "out/pay";
    program.windowTitle = "Pay example";
    return ui::simulator::run(argc, argv, program, [](const ui::simulator::Context& context) {
        return std::make_unique<PaySimulation>(context);
    });
}
