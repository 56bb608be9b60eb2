// Every thread of a busy payment application at once, for a bounded time, under a watchdog
// that fails the run on any stall and says what each thread was doing.
#include "Support.hpp"

#include "ui/ContactlessStatusIndicator.hpp"
#include "ui/KeyBoard.hpp"
#include "ui/Menu.hpp"
#include "ui/Prompt.hpp"
#include "ui/UserInterface.hpp"
#include "ui/Window.hpp"

#include <cstdio>
#include <random>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

// A screen with a prompt and a list: digits type, Clear and Cancel delete, Up and Down scroll.
class BusyScreen : public app::Screen {
public:
    BusyScreen() : Screen(0, 0, 320, 216) {
        std::vector<ui::ListItem> items;
        for (int i = 0; i < 12; ++i)
            items.emplace_back(0, 0, 300, 0, ui::menu::MenuItem(i, "Entry " + std::to_string(i), i % 4 == 2));
        list = std::make_shared<ui::ListBox>(8, 100, 300, 100, items);
        add(list);
        prompt.setText(6);
        ui::input::AlignCenter(prompt);
    }
    void draw(_XuiWindow* canvas) override {
        prompt.draw(canvas);
        drawWidgets(canvas);
    }
    void handleKeyPress(const device::input::Key& key) override {
        if (key == device::input::KEY_UP)
            list->up();
        else if (key == device::input::KEY_DOWN)
            list->down();
        else if (key == device::input::KEY_CLEAR)
            prompt.clear();
        else if (key == device::input::KEY_CANCEL)
            prompt.clearAll();
        else
            prompt.injectKey(key);
        if (prompt.getInputText().size() > 6)
            prompt.clearAll();
        ++keys;
    }

    ui::input::InputPrompt prompt = ui::input::createCurrencyPrompt(1, 99999999, 2, "\xC2\xA3", ".");
    std::shared_ptr<ui::ListBox> list;
    std::atomic<int> keys{0};
};

// One application thread: a named loop of operations, its progress and what it does now.
struct Worker {
    std::string name;
    std::function<void(std::mt19937&)> step;
    std::atomic<uint64_t> operations{0};
    std::atomic<const char*> doing{"starting"};
    std::thread thread;
};

class StressTest : public test::PlatformTest {
protected:
    StressTest() { openDisplay = false; }
};

TEST_F(StressTest, EveryThreadAtOnce_NoStallNoCrash) {
    const char* env = std::getenv("UI_STRESS_SECONDS");
    const auto duration = std::chrono::seconds(env ? std::atoi(env) : 20);
    osal::host::setLogSink([](LogLevel, const std::string&) {}); // errors are counted, not kept

    ui::UserInterface ui(GraphicsDeviceParams{0, 32});
    ui.initialize();
    ui::IGraphics* graphics = ui::ServiceLocator::getGraphicsService();
    auto header = std::make_shared<app::StatusHeader>("res/");
    graphics->getWindow()->setHeader(header);
    CtlsStatusIndicatorConfiguration quick; // every sequence, shortened
    quick.idlePeriodMs = 40;
    quick.idleFlashMs = 10;
    quick.successStepMs = 20;
    quick.successHoldMs = 40;
    quick.alertToneDurationMs = 5;
    quick.alertTonePauseMs = 5;
    ui.enableContactless(app::StatusHeader::kIndicatorArea, quick);
    std::vector<std::shared_ptr<BusyScreen>> screens = {std::make_shared<BusyScreen>(),
                                                        std::make_shared<BusyScreen>()};
    graphics->setContext(screens[0]);

    std::atomic<bool> stop{false};
    std::vector<std::unique_ptr<Worker>> workers;
    const auto add = [&](std::string name, std::function<void(std::mt19937&)> step) {
        auto w = std::make_unique<Worker>();
        w->name = std::move(name);
        w->step = std::move(step);
        workers.push_back(std::move(w));
    };
    add("views", [&](std::mt19937& random) {
        graphics->setContext(screens[random() % 2]);
        graphics->update();
    });
    add("frames", [&](std::mt19937&) {
        graphics->update();
        graphics->waitForDraw();
    });
    auto single = std::make_shared<ui::Label>(0, 0, 320, 20);
    single->setText("Render");
    add("render", [&](std::mt19937&) {
        graphics->render(single.get());
        std::this_thread::sleep_for(1ms);
    });
    add("header", [&](std::mt19937& random) {
        header->setBattery(int(random() % 7));
        header->setSignal(unsigned(random() % 101));
        header->setOfflineCount(int(random() % 200));
        header->setEthernet(random() % 2);
        graphics->updateHeader();
    });
    add("indicator", [&](std::mt19937& random) {
        static const ui::State states[] = {ui::State::Off,     ui::State::Idle,  ui::State::Ready,
                                           ui::State::Success, ui::State::Error, ui::State::Processing};
        ui::ServiceLocator::updateContactlessIndicator(states[random() % 6]);
    });
    uint64_t pushed = 0;
    add("keys", [&](std::mt19937& random) {
        static const int codes[] = {'1',        '2',         '5', '0', XUI_KEY_CLEAR, XUI_KEY_CANCEL,
                                    XUI_KEY_UP, XUI_KEY_DOWN};
        xui_host::pushKey(codes[random() % 8]);
        ++pushed;
        // Never further ahead of the keypad than a person could be.
        while (xui_host::keysRead() + 8 < pushed && !stop)
            std::this_thread::sleep_for(100us);
    });
    add("rebind", [&](std::mt19937&) {
        // The keypad handed to a forwarder and back, as an application taking keys for a while.
        ui::ServiceLocator::getInputService()->bind([graphics](device::input::Key key) {
            if (auto window = graphics->getWindow())
                window->injectKeyPress(key);
        });
        std::this_thread::sleep_for(5ms);
    });
    add("typing", [&](std::mt19937& random) {
        screens[random() % 2]->prompt.setTextboxText(std::to_string(random() % 1000));
        screens[random() % 2]->list->down();
    });

    for (auto& w : workers)
        w->thread = std::thread([&w = *w, &stop] {
            std::mt19937 random(std::hash<std::string>()(w.name));
            while (!stop) {
                w.doing = w.name.c_str();
                w.step(random);
                w.doing = "between operations";
                ++w.operations;
            }
            w.doing = "finished";
        });

    // The watchdog: every thread must make progress every few seconds.
    const auto start = Clock::now();
    std::vector<uint64_t> seen(workers.size(), 0);
    std::vector<Clock::time_point> progressed(workers.size(), start);
    while (Clock::now() - start < duration) {
        std::this_thread::sleep_for(100ms);
        for (size_t i = 0; i < workers.size(); ++i) {
            const uint64_t now = workers[i]->operations;
            if (now != seen[i]) {
                seen[i] = now;
                progressed[i] = Clock::now();
            } else if (Clock::now() - progressed[i] > 5s) {
                for (const auto& w : workers)
                    std::fprintf(stderr, "  %-10s %10llu operations, now: %s\n", w->name.c_str(),
                                 static_cast<unsigned long long>(w->operations.load()), w->doing.load());
                ADD_FAILURE() << "the " << workers[i]->name << " thread stalled for five seconds";
                std::abort(); // a deadlocked process cannot be joined
            }
        }
    }
    stop = true;
    for (auto& w : workers)
        w->thread.join();
    const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
    std::printf("stress, %.0f s:", seconds);
    for (const auto& w : workers) {
        std::printf(" %s %.0f/s", w->name.c_str(), double(w->operations) / seconds);
        EXPECT_GT(w->operations.load(), 0u) << w->name;
    }
    std::printf(", keys handled %d, frames shown %llu\n", screens[0]->keys + screens[1]->keys,
                static_cast<unsigned long long>(xui_host::framesShown()));
    EXPECT_GT(screens[0]->keys + screens[1]->keys, 0);
}

} // namespace
