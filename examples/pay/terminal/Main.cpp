// The example on the terminal: the payment screen takes the amount from the keypad, and the
// card reader, a stub here, taps an approved card a second after the screen asks for one.
// --smoke types an amount itself and ends once the outcome shows: a check that the
// application runs on the device.
#include "PayApp.hpp"

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <thread>

namespace {

using namespace std::chrono_literals;

// Stands in for the terminal's card reader: taps once the screen asks for a card.
class StubCardReader {
public:
    explicit StubCardReader(pay::PayApp& app) : app_(app), thread_([this] { run(); }) {}
    ~StubCardReader() {
        stopping_ = true;
        thread_.join();
    }
    bool tapped() const { return tapped_; }

private:
    void run() {
        while (!stopping_ && app_.screen().amount() == 0)
            std::this_thread::sleep_for(50ms);
        if (stopping_)
            return;
        std::this_thread::sleep_for(1s);
        app_.cardTapped(true);
        tapped_ = true;
    }

    pay::PayApp& app_;
    std::atomic<bool> stopping_{false};
    std::atomic<bool> tapped_{false};
    std::thread thread_;
};

} // namespace

int main(int argc, char** argv) {
    const bool smoke = argc > 1 && std::strcmp(argv[1], "--smoke") == 0;
    pay::PayApp app;
    StubCardReader reader(app);
    if (!smoke) {
        for (;;) // a terminal's application runs until the terminal goes off
            std::this_thread::sleep_for(1h);
    }
    for (const auto key : {device::input::KEY_1, device::input::KEY_2, device::input::KEY_5,
                           device::input::KEY_0, device::input::KEY_ENTER})
        app.graphics().getWindow()->injectKeyPress(key); // the keypad's path
    const auto deadline = std::chrono::steady_clock::now() + 30s;
    while (!reader.tapped() && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(50ms);
    app.waitUntilIdle();
    std::printf("amount %ld, %s\n", app.screen().amount(), app.screen().status().c_str());
    return app.screen().amount() == 1250 && app.screen().status() == "Approved" ? 0 : 1;
}
