// Text: measuring, drawing and every line breaker, on any bytes (cut UTF-8, overlong forms,
// surrogates, control characters). The first byte picks the width.
#include "Fuzz.hpp"
#include "ReferenceWrap.hpp"

#include <ui/Label.hpp>
#include <ui/Xui.hpp>

#include <string>

namespace {

int text(const uint8_t* data, size_t size) {
    fuzz::openDisplay();
    if (size == 0)
        return 0;
    const unsigned width = data[0] * 2u;
    const std::string s(reinterpret_cast<const char*>(data + 1), size - 1);
    ui::fonts::GetTextWidth(s.c_str());
    // The fast breaking must give the lines of the straightforward one (slow: short texts).
    const auto lines = WrapText(s, width);
    if (s.size() <= 256 &&
        lines != test::referenceWrapText(s, width, [](const char* t) { return ui::fonts::GetTextWidth(t); }))
        __builtin_trap();
    ui::Label label(0, 0, width, 40);
    label.setAlignment(static_cast<ui::utils::Origin>(data[0] % 5));
    label.setText(s);
    label.draw(XuiRootCanvas());
    ui::WrappableLabel wrapped(0, 0, width, 200, ui::utils::Centre, ui::utils::Bottom);
    wrapped.wrapText(s);
    wrapped.draw(XuiRootCanvas());
    ui::wordWrap(s, data[0] % 40);
    ui::centerOfScreenFormatting(s);
    // The pixel breaker's output grows steeply with the lines it makes: short texts only.
    if (s.size() <= 48) {
        std::vector<std::string> out;
        ui::wordWrap(out, s);
        ui::automaticFormatting(s, 0);
    }
    return 0;
}

} // namespace

UI_FUZZ_TARGET(text, text)
