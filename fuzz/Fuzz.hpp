// The fuzz targets' one entry point each. Built with clang's libFuzzer (the fuzz preset,
// ./run fuzz) each target is a fuzzer of its own; built otherwise they are registered by name
// in ui_fuzz_replay, which replays their corpora as ordinary tests.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

namespace fuzz {

using Target = int (*)(const uint8_t* data, size_t size);

std::map<std::string, Target>& targets();

struct Registration {
    Registration(const char* name, Target target) { targets()[name] = target; }
};

// The display the targets draw on: a graphics device on a 320 x 240 panel with a 24-pixel
// status bar, opened once.
void openDisplay();

} // namespace fuzz

#ifdef UI_LIBFUZZER
#define UI_FUZZ_TARGET(name, function)                                                                       \
    extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {                                \
        return function(data, size);                                                                         \
    }
#else
#define UI_FUZZ_TARGET(name, function) static const fuzz::Registration registration_##name(#name, function);
#endif
