// The terminal in a window: the panel at a zoom, the PC keyboard as keypad, hotkeys for the
// card reader and the header's states the application has, the tones on the sound card.
#include "ui/simulator/Simulator.hpp"

#include "Controls.hpp"

#include <ui/session/Script.hpp>
#include <ui/session/Session.hpp>
#include <ui/session/Tones.hpp>

#include <osal/host.hpp>
#include <xui_host.hpp>

#include <SDL.h>

#include <chrono>
#include <filesystem>
#include <iostream>
#include <map>

namespace ui::simulator {
namespace {

using ui::session::addTone;
using ui::session::FrontEnd;
using ui::session::keyCode;
using ui::session::keyForTypedCharacter;
using ui::session::kToneSampleRate;

// The PC keys that stand for the terminal's other keys, by the key's position. Digits, '*' and
// '#' come from the text typed instead, so that any keyboard layout gives them.
int keypadCode(SDL_Keycode key) {
    static const std::map<SDL_Keycode, std::string> names = {
        {SDLK_RETURN, "ENTER"}, {SDLK_KP_ENTER, "ENTER"}, {SDLK_ESCAPE, "CANCEL"}, {SDLK_BACKSPACE, "CLEAR"},
        {SDLK_UP, "UP"},        {SDLK_DOWN, "DOWN"},      {SDLK_m, "MENU"},        {SDLK_a, "ALPHA"},
        {SDLK_F1, "F1"},        {SDLK_F2, "F2"},          {SDLK_F3, "F3"},         {SDLK_F4, "F4"},
        {SDLK_p, "POWER"}};
    const auto it = names.find(key);
    return it == names.end() ? XUI_KEY_NONE : keyCode(it->second);
}

class Terminal : public FrontEnd {
public:
    Terminal(const WindowOptions& options, const Program& program, const Factory& factory)
        : options_(options), program_(program) {
        Context context;
        context.display = options.display;
        app_ = factory(context);
        if (app_)
            features_ = app_->headerFeatures();
    }

    int run() {
        if (!app_) {
            std::cerr << program_.name << ": the factory built no application\n";
            return 1;
        }
        const auto first = xui_host::screen();
        width_ = int(first.width);
        height_ = int(first.height);
        const int zoom = int(std::max(1u, options_.zoom));
        window_ = SDL_CreateWindow(program_.windowTitle.c_str(), SDL_WINDOWPOS_CENTERED,
                                   SDL_WINDOWPOS_CENTERED, width_ * zoom, height_ * zoom, 0);
        renderer_ = window_ ? SDL_CreateRenderer(window_, -1, SDL_RENDERER_SOFTWARE) : nullptr;
        texture_ = renderer_ ? SDL_CreateTexture(renderer_, SDL_PIXELFORMAT_ARGB8888,
                                                 SDL_TEXTUREACCESS_STREAMING, width_, height_)
                             : nullptr;
        if (!texture_) {
            std::cerr << program_.name << ": no window: " << SDL_GetError() << "\n";
            return 1;
        }
        SDL_StartTextInput();
        uint64_t minute = SDL_GetTicks64() / 60000;
        while (running_ && !app_->finished()) {
            playScript();
            SDL_Event event;
            while (SDL_PollEvent(&event))
                handle(event);
            // The header's clock shows minutes: redraw it when one turns.
            if (SDL_GetTicks64() / 60000 != minute) {
                minute = SDL_GetTicks64() / 60000;
                app_->refreshHeader();
            }
            present();
            SDL_Delay(16);
        }
        return 0;
    }

    ~Terminal() override {
        if (texture_)
            SDL_DestroyTexture(texture_);
        if (renderer_)
            SDL_DestroyRenderer(renderer_);
        if (window_)
            SDL_DestroyWindow(window_);
    }

    // A script's keys go into the keypad as a person's would; its waits and shots do not hold
    // the window up.
    void press(int code) override {
        xui_host::pushKey(code);
        ++keysSent_;
    }
    void wait(std::chrono::milliseconds time) override {
        waitUntil_ = SDL_GetTicks64() + uint64_t(time.count());
    }
    void shot(const std::string& name) override {
        shotName_ = name;
        shotPending_ = true;
        waitUntil_ = SDL_GetTicks64() + 100; // let the last change reach the window
    }

private:
    // One script line per frame.
    void playScript() {
        if (next_ >= options_.script.size()) {
            if (options_.quitAfterScript && !options_.script.empty() && !shotPending_)
                running_ = false;
            return;
        }
        if (SDL_GetTicks64() < waitUntil_ || shotPending_)
            return;
        app_->waitUntilIdle();
        const int taken = app_->keysTaken();
        if (taken >= 0 ? taken < keysSent_ : !xui_host::waitForKeysHandled(std::chrono::milliseconds(0)))
            return; // the keypad has not taken them all yet
        ui::session::apply(options_.script[next_++], *app_, *this);
    }

    void handle(const SDL_Event& event) {
        if (event.type == SDL_QUIT) {
            running_ = false;
            return;
        }
        // Keys typed before the window has the keyboard are lost: a driver waits for this line.
        if (event.type == SDL_WINDOWEVENT && event.window.event == SDL_WINDOWEVENT_FOCUS_GAINED &&
            !focused_) {
            focused_ = true;
            std::cout << "keyboard focus" << std::endl;
            return;
        }
        if (event.type == SDL_TEXTINPUT) {
            for (const char* c = event.text.text; *c; ++c)
                if (const int code = keyForTypedCharacter(*c))
                    xui_host::pushKey(code);
            return;
        }
        if (event.type != SDL_KEYDOWN)
            return;
        const SDL_Keycode key = event.key.keysym.sym;
        switch (key) {
        case SDLK_q:
            running_ = false;
            return;
        case SDLK_F12:
            settle();
            shotPending_ = true;
            return;
        default:
            if (hotkey(key))
                return;
            if (const int code = keypadCode(key))
                xui_host::pushKey(code);
        }
    }

    // The card reader's and the header's keys, each only if the application takes it; a key it
    // does not take goes to the keypad as usual (M is the menu key either way).
    bool hotkey(SDL_Keycode key) {
        return key >= SDLK_a && key <= SDLK_z && operate(char(key), *app_, features_);
    }

    // What was typed before a screenshot is on it: every key read and handled, the
    // application and the library's threads done, and a frame begun after that presented.
    void settle() {
        using std::chrono::seconds;
        xui_host::waitForKeysHandled(seconds(5));
        app_->waitUntilIdle();
        osal::host::waitUntilSettled(seconds(5));
        ui::session::presentNewFrame(app_->graphics(), seconds(5));
    }

    void present() {
        const auto panel = xui_host::screen();
        SDL_UpdateTexture(texture_, nullptr, panel.argb.data(), int(panel.width * 4));
        SDL_RenderClear(renderer_);
        SDL_RenderCopy(renderer_, texture_, nullptr, nullptr);
        if (shotPending_ && SDL_GetTicks64() >= waitUntil_)
            screenshot();
        SDL_RenderPresent(renderer_);
    }

    // What the window shows, as a PNG under the screenshot folder.
    void screenshot() {
        shotPending_ = false;
        int w = 0, h = 0;
        SDL_GetRendererOutputSize(renderer_, &w, &h);
        xui_host::Pixels shot;
        shot.width = unsigned(w);
        shot.height = unsigned(h);
        shot.argb.resize(size_t(w) * size_t(h));
        if (SDL_RenderReadPixels(renderer_, nullptr, SDL_PIXELFORMAT_ARGB8888, shot.argb.data(), w * 4) !=
            0) {
            std::cerr << program_.name << ": no screenshot: " << SDL_GetError() << "\n";
            return;
        }
        std::filesystem::create_directories(options_.screenshots);
        const std::string name = shotName_.empty() ? "window_" + std::to_string(++shots_) : shotName_;
        shotName_.clear();
        const std::string path = options_.screenshots + "/" + name + ".png";
        std::cout << (xui_host::savePng(shot, path) ? "wrote " : "cannot write ") << path << std::endl;
    }

    const WindowOptions& options_;
    const Program& program_;
    std::unique_ptr<ui::session::Application> app_;
    ui::session::HeaderFeatures features_;
    SDL_Window* window_ = nullptr;
    SDL_Renderer* renderer_ = nullptr;
    SDL_Texture* texture_ = nullptr;
    int width_ = 0, height_ = 0;
    bool running_ = true;
    bool focused_ = false;
    size_t next_ = 0;
    int keysSent_ = 0;
    uint64_t waitUntil_ = 0;
    bool shotPending_ = false;
    std::string shotName_;
    int shots_ = 0;
};

} // namespace

const char* windowKeys() {
    return "Keys in the window: digits, * and # as typed, Enter, Esc (cancel), Backspace (clear), arrows,\n"
           "F1-F4, M (menu), P (power). T taps an approved card, D a declined one. For the header's\n"
           "states the application has: B battery, E Ethernet, S signal, F flight mode, O offline\n"
           "count, U update. F12 saves a screenshot; Q or closing quits.\n";
}

int runWindow(const WindowOptions& options, const Program& program, const Factory& factory) {
    if (SDL_Init(SDL_INIT_VIDEO) != 0) {
        std::cerr << program.name << ": no window: " << SDL_GetError() << "\n";
        return 1;
    }
    // Sound is a bonus: without a sound card the terminal still runs.
    SDL_AudioDeviceID audio = 0;
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) == 0) {
        SDL_AudioSpec want{}, have{};
        want.freq = kToneSampleRate;
        want.format = AUDIO_S16SYS;
        want.channels = 1;
        want.samples = 1024;
        audio = SDL_OpenAudioDevice(nullptr, 0, &want, &have, 0);
    }
    int tones = 0;
    if (audio) {
        SDL_PauseAudioDevice(audio, 0);
        tones = osal::host::addBeepListener([audio](const osal::host::Beep& beep) {
            std::vector<int16_t> samples;
            addTone(samples, 0, beep.frequencyHz, beep.durationMs);
            SDL_QueueAudio(audio, samples.data(), Uint32(samples.size() * sizeof(int16_t)));
        });
    }
    // A script's pictures match a session's: the animations stand still where a session pins them.
    if (!options.script.empty())
        xui_host::pinAnimationTime(ui::session::kPinnedAnimationTime);
    int result = 0;
    {
        Terminal terminal(options, program, factory);
        result = terminal.run();
    }
    xui_host::unpinAnimationTime();
    if (tones)
        osal::host::removeBeepListener(tones);
    if (audio)
        SDL_CloseAudioDevice(audio);
    SDL_Quit();
    return result;
}

} // namespace ui::simulator
