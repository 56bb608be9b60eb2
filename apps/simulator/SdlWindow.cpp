#include "SdlWindow.hpp"

#include "DemoApp.hpp"

#include <osal/host.hpp>
#include <xui_host.hpp>

#include <SDL.h>

#include <cmath>
#include <iostream>
#include <vector>

namespace demo {
namespace {

constexpr int kSampleRate = 22050;

int keypadCode(SDL_Keycode key) {
    if (key >= SDLK_0 && key <= SDLK_9)
        return '0' + (key - SDLK_0);
    if (key >= SDLK_KP_1 && key <= SDLK_KP_9)
        return '1' + (key - SDLK_KP_1);
    switch (key) {
    case SDLK_KP_0:
        return '0';
    case SDLK_RETURN:
    case SDLK_KP_ENTER:
        return XUI_KEY_ENTER;
    case SDLK_ESCAPE:
        return XUI_KEY_CANCEL;
    case SDLK_BACKSPACE:
        return XUI_KEY_CLEAR;
    case SDLK_UP:
        return XUI_KEY_UP;
    case SDLK_DOWN:
        return XUI_KEY_DOWN;
    case SDLK_F1:
        return XUI_KEY_F1;
    case SDLK_F2:
        return XUI_KEY_F1 + 1;
    case SDLK_F3:
        return XUI_KEY_F1 + 2;
    case SDLK_F4:
        return XUI_KEY_F1 + 3;
    case SDLK_ASTERISK:
    case SDLK_KP_MULTIPLY:
        return XUI_KEY_STAR;
    case SDLK_HASH:
        return XUI_KEY_HASH;
    default:
        return XUI_KEY_NONE;
    }
}

// A square wave, as a terminal's buzzer sounds.
std::vector<int16_t> tone(unsigned frequencyHz, unsigned durationMs) {
    std::vector<int16_t> samples(size_t(kSampleRate) * durationMs / 1000);
    const double period = frequencyHz ? double(kSampleRate) / frequencyHz : 1;
    for (size_t i = 0; i < samples.size(); ++i)
        samples[i] = std::fmod(double(i), period) < period / 2 ? 4000 : -4000;
    return samples;
}

} // namespace

int runWindow(unsigned scale) {
    if (SDL_Init(SDL_INIT_VIDEO | SDL_INIT_AUDIO) != 0) {
        std::cerr << "ui_demo: no window: " << SDL_GetError() << "\n";
        return 1;
    }
    SDL_AudioSpec want{}, have{};
    want.freq = kSampleRate;
    want.format = AUDIO_S16SYS;
    want.channels = 1;
    want.samples = 1024;
    const SDL_AudioDeviceID audio = SDL_OpenAudioDevice(nullptr, 0, &want, &have, 0);
    if (audio) {
        SDL_PauseAudioDevice(audio, 0);
        osal::host::setBeepHandler([audio](const osal::host::Beep& beep) {
            auto samples = tone(beep.frequencyHz, beep.durationMs);
            SDL_QueueAudio(audio, samples.data(), Uint32(samples.size() * sizeof(int16_t)));
        });
    }

    int result = 0;
    {
        DemoApp app;
        const auto first = xui_host::screen();
        SDL_Window* window =
            SDL_CreateWindow("Payment terminal simulator", SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED,
                             int(first.width * scale), int(first.height * scale), 0);
        SDL_Renderer* renderer = window ? SDL_CreateRenderer(window, -1, 0) : nullptr;
        SDL_Texture* texture =
            renderer ? SDL_CreateTexture(renderer, SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_STREAMING,
                                         int(first.width), int(first.height))
                     : nullptr;
        if (!texture) {
            std::cerr << "ui_demo: no window: " << SDL_GetError() << "\n";
            result = 1;
        }
        bool running = texture != nullptr;
        uint64_t clockMinute = 0;
        while (running && !app.finished()) {
            SDL_Event event;
            while (SDL_PollEvent(&event)) {
                if (event.type == SDL_QUIT || (event.type == SDL_KEYDOWN && event.key.keysym.sym == SDLK_q))
                    running = false;
                else if (event.type == SDL_KEYDOWN)
                    if (const int code = keypadCode(event.key.keysym.sym))
                        xui_host::pushKey(code);
            }
            // The clock in the header shows minutes: redraw the header when one turns.
            const uint64_t minute = SDL_GetTicks64() / 60000;
            if (minute != clockMinute) {
                clockMinute = minute;
                app.refreshHeader();
            }
            const auto panel = xui_host::screen();
            SDL_UpdateTexture(texture, nullptr, panel.argb.data(), int(panel.width * 4));
            SDL_RenderClear(renderer);
            SDL_RenderCopy(renderer, texture, nullptr, nullptr);
            SDL_RenderPresent(renderer);
            SDL_Delay(16);
        }
        if (texture)
            SDL_DestroyTexture(texture);
        if (renderer)
            SDL_DestroyRenderer(renderer);
        if (window)
            SDL_DestroyWindow(window);
    }
    osal::host::setBeepHandler(nullptr);
    if (audio)
        SDL_CloseAudioDevice(audio);
    SDL_Quit();
    return result;
}

} // namespace demo
