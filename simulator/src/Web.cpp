// The terminal in a browser page, built to WebAssembly: the same run() an application's main
// calls for the window. The page (page.js) draws the panel on a canvas, turns its keypad, its
// buttons and the PC keyboard into the calls below and plays the tones with Web Audio.
//
// main() runs on a thread of its own (the page's thread must never block): it builds the
// application and then serves the page's requests one at a time, as the window's loop does.
// The page reads the panel itself, on its own thread, whenever a new frame has been shown.
#include "ui/simulator/Simulator.hpp"

#include "Controls.hpp"

#include <ui/session/Session.hpp>

#include <osal/host.hpp>
#include <xui_host.hpp>

#include <emscripten/emscripten.h>

#include <condition_variable>
#include <deque>
#include <iostream>
#include <mutex>
#include <optional>
#include <sstream>

namespace ui::simulator {
namespace {

// What the page asked for, in the order it asked.
struct Request {
    enum Kind { Control, Settle, Play } kind;
    std::string text; // the control's letter, or the script
    int id = 0;       // echoed to the page when done
};

class Page {
public:
    void post(Request request) {
        std::lock_guard<std::mutex> lock(mutex_);
        requests_.push_back(std::move(request));
        wake_.notify_one();
    }
    Request next() {
        std::unique_lock<std::mutex> lock(mutex_);
        wake_.wait(lock, [this] { return !requests_.empty(); });
        Request request = std::move(requests_.front());
        requests_.pop_front();
        return request;
    }

    // A session's step is held until the page has drawn it and read it back.
    void showStep(const ui::session::Step& step) {
        std::unique_lock<std::mutex> lock(mutex_);
        step_ = &step;
        stepShown_ = false;
        MAIN_THREAD_ASYNC_EM_ASM(
            { Module.sim.onStep($0, UTF8ToString($1), UTF8ToString($2), UTF8ToString($3)); }, step.number,
            step.action.c_str(), step.picture.c_str(), step.leds.c_str());
        wake_.wait(lock, [this] { return stepShown_; });
        step_ = nullptr;
    }
    void stepShown() {
        std::lock_guard<std::mutex> lock(mutex_);
        stepShown_ = true;
        wake_.notify_all();
    }
    // The step being shown, copied as RGBA; false when none is.
    bool copyStep(uint8_t* rgba) {
        std::lock_guard<std::mutex> lock(mutex_);
        if (!step_)
            return false;
        toRgba(step_->screen, rgba);
        return true;
    }

    static void toRgba(const xui_host::Pixels& pixels, uint8_t* rgba) {
        for (const uint32_t argb : pixels.argb) {
            *rgba++ = uint8_t(argb >> 16);
            *rgba++ = uint8_t(argb >> 8);
            *rgba++ = uint8_t(argb);
            *rgba++ = uint8_t(argb >> 24);
        }
    }

private:
    std::mutex mutex_;
    std::condition_variable wake_;
    std::deque<Request> requests_;
    const ui::session::Step* step_ = nullptr;
    bool stepShown_ = false;
};

Page page;

// Settled as for a screenshot: every key read and handled, the application and the library's
// threads done, and a frame begun after that presented.
void settle(ui::session::Application& app) {
    using std::chrono::seconds;
    xui_host::waitForKeysHandled(seconds(5));
    app.waitUntilIdle();
    osal::host::waitUntilSettled(seconds(5));
    ui::session::presentNewFrame(app.graphics(), seconds(5));
}

// What stops the page before it is ready, on standard error and on the page.
int fail(const Program& program, const std::string& why, int code) {
    std::cerr << program.name << ": " << why << "\n";
    MAIN_THREAD_EM_ASM({ Module.sim.onFailed(UTF8ToString($0)); }, why.c_str());
    return code;
}

// Synchronous: the text lives only as long as this call.
void tellPage(const char* what, int id, bool ok, const std::string& text) {
    MAIN_THREAD_EM_ASM({ Module.sim[UTF8ToString($0)]($1, !!$2, UTF8ToString($3)); }, what, id, ok,
                       text.c_str());
}

} // namespace

const char* windowKeys() {
    return "Keys in the page: digits, * and # as typed, Enter, Esc (cancel), Backspace (clear), arrows,\n"
           "F1-F4, M (menu), P (power). T taps an approved card, D a declined one; B, E, S, F, O and U\n"
           "move the header's states the application has.\n";
}

int runWindow(const WindowOptions&, const Program& program, const Factory&) {
    std::cerr << program.name << ": in a page, the page is the window\n";
    return 1;
}

// The page passes its query as arguments: --lang de, --pin (the clock, the animations and the
// indicator's timing pinned as a session pins them, for pictures that match a headless run).
int run(int argc, char** argv, const Program& program, const Factory& factory) {
    std::string language = "en";
    bool pinned = false;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--lang" && i + 1 < argc)
            language = argv[++i];
        else if (arg == "--pin")
            pinned = true;
    }
    if (!osal::host::loadStrings("res/strings/" + language + ".txt"))
        return fail(program, "no strings for the language \"" + language + "\"", 2);
    // For the page's life: the page is the process.
    osal::host::addBeepListener([](const osal::host::Beep& beep) {
        MAIN_THREAD_ASYNC_EM_ASM({ Module.sim.onTone($0, $1); }, beep.frequencyHz, beep.durationMs);
    });

    const auto start = [&] {
        Context context;
        if (pinned)
            context.indicator = program.headlessIndicator;
        return factory(context);
    };
    // A pinned page watches as a session does: made before the application, which reads the clock.
    std::optional<ui::session::Session> pins;
    if (pinned)
        pins.emplace();
    std::unique_ptr<ui::session::Application> app = start();
    if (!app)
        return fail(program, "the factory built no application", 1);
    ui::session::HeaderFeatures features = app->headerFeatures();
    MAIN_THREAD_ASYNC_EM_ASM({ Module.sim.onReady($0, $1, $2, $3, $4, $5); }, features.battery,
                             features.ethernet, features.signal, features.flightMode, features.offlineCount,
                             features.updateAvailable);

    // The page's requests, one at a time, for as long as the page is open.
    for (;;) {
        const Request request = page.next();
        switch (request.kind) {
        case Request::Control:
            operate(request.text[0], *app, features);
            break;
        case Request::Settle:
            settle(*app);
            tellPage("onSettled", request.id, true, "");
            break;
        case Request::Play: {
            // A session starts afresh: the application is built again for it, and again after it.
            std::ostringstream timeline;
            bool ok = true;
            std::string error;
            try {
                std::istringstream text(request.text);
                const auto script = ui::session::parseScript(text, "page.session");
                app.reset();
                pins.reset();
                HeadlessOptions options;
                options.onStep = [](const ui::session::Step& step) { page.showStep(step); };
                const auto result = playHeadless(script, options, program, factory);
                for (const auto& line : ui::session::timelineLines(result.steps, true))
                    timeline << line << "\n";
            } catch (const std::exception& e) {
                ok = false;
                error = e.what();
            }
            if (pinned && !pins)
                pins.emplace();
            if (!app)
                app = start();
            if (!app)
                return fail(program, "the factory built no application", 1);
            features = app->headerFeatures();
            tellPage("onPlayed", request.id, ok, ok ? timeline.str() : error);
            break;
        }
        }
    }
}

} // namespace ui::simulator

// What the page calls, on its own thread: quick calls only; anything that may block is posted.
extern "C" {

EMSCRIPTEN_KEEPALIVE unsigned sim_frames() {
    return unsigned(xui_host::framesShown());
}
EMSCRIPTEN_KEEPALIVE int sim_width() {
    return int(xui_host::screen().width);
}
EMSCRIPTEN_KEEPALIVE int sim_height() {
    return int(xui_host::screen().height);
}
// The panel as shown now, RGBA, into width x height x 4 bytes.
EMSCRIPTEN_KEEPALIVE void sim_panel(uint8_t* rgba) {
    ui::simulator::Page::toRgba(xui_host::screen(), rgba);
}
EMSCRIPTEN_KEEPALIVE int sim_step(uint8_t* rgba) {
    return ui::simulator::page.copyStep(rgba);
}
EMSCRIPTEN_KEEPALIVE void sim_step_shown() {
    ui::simulator::page.stepShown();
}
// A keypad key by its name ("ENTER"), or a typed character ('5', '*'); false for neither.
EMSCRIPTEN_KEEPALIVE int sim_key(const char* name) {
    int code = ui::session::keyCode(name);
    if (code == XUI_KEY_NONE && name[0] && !name[1])
        code = ui::session::keyForTypedCharacter(name[0]);
    if (code != XUI_KEY_NONE)
        xui_host::pushKey(code);
    return code != XUI_KEY_NONE;
}
EMSCRIPTEN_KEEPALIVE void sim_control(int letter) {
    ui::simulator::page.post({ui::simulator::Request::Control, std::string(1, char(letter))});
}
EMSCRIPTEN_KEEPALIVE void sim_settle(int id) {
    ui::simulator::page.post({ui::simulator::Request::Settle, "", id});
}
EMSCRIPTEN_KEEPALIVE void sim_play(const char* script, int id) {
    ui::simulator::page.post({ui::simulator::Request::Play, script, id});
}
}
