// The demo payment application as the simulator runs it: what it is called, the session it
// plays by default, and how it is built once the platform is set up.
#pragma once

#include "PaymentApp.hpp"

#include <ui/simulator/Simulator.hpp>

#include <memory>

namespace demo {

inline ui::simulator::Program program() {
    ui::simulator::Program program;
    program.name = "ui_demo";
    program.description = "Payment terminal simulator: the demo payment application on the UI library.";
    program.defaultScript = "demo/demo.session";
    program.defaultOut = "out/demo";
    return program;
}

inline std::unique_ptr<ui::session::Application> build(const ui::simulator::Context& context) {
    AppOptions options;
    options.display = context.display;
    options.indicator = context.indicator;
    options.moment = context.onMoment;
    return std::make_unique<PaymentApp>(options);
}

} // namespace demo
