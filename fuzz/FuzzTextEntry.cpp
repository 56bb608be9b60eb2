// Text entry: any sequence of keys and pauses into every kind of text box. Each byte is a key
// (its value modulo 26 as a key code) or, from 0xF0 up, a pause of up to a second on the
// virtual clock. What a box holds must always be what its policy allows.
#include "Fuzz.hpp"

#include <ui/TextBox.hpp>
#include <ui/Xui.hpp>

#include <osal/host.hpp>

#include <cstdlib>
#include <memory>
#include <vector>

namespace {

bool digitsOnly(const std::string& s) {
    return s.find_first_not_of("0123456789") == std::string::npos;
}

int entry(const uint8_t* data, size_t size) {
    fuzz::openDisplay();
    osal::host::useVirtualTime(true);
    ui::TextBox<numeric_policy, format_policy> amount(0, 0, 320, 20);
    amount.setMax(99999);
    amount.setExponent(3);
    amount.setSymbol("\xC2\xA3");
    ui::TextBox<numeric_policy_time, FormatTimePolicy> time(0, 20, 320, 20);
    time.setMax(235959);
    ui::TextBox<numeric_policy_ipAddress, FormatIPAdressPolicy> address(0, 40, 320, 20);
    address.setMax(255255255255LL);
    ui::TextBox<alpha_numeric_policy, empty_format_policy> name(0, 60, 320, 20);
    name.allowCharacters(true);
    name.allowSymbols(true);
    name.setMax(8);
    ui::TextBox<default_alpha_numeric_policy<true, true, true>, empty_format_policy> free(0, 80, 320, 20);
    free.maskDisplayString(true);
    std::vector<ui::ITextComponent*> boxes = {&amount, &time, &address, &name, &free};
    for (size_t i = 0; i < size; ++i) {
        if (data[i] >= 0xF0) {
            osal::host::advanceTime(std::chrono::milliseconds((data[i] - 0xF0) * 70));
            continue;
        }
        const auto key = static_cast<device::input::Key>(data[i] % 26);
        for (ui::ITextComponent* box : boxes) {
            if (key == device::input::KEY_CLEAR)
                box->clear();
            else if (key == device::input::KEY_CANCEL)
                box->clearAll();
            else
                box->injectKey(key);
        }
    }
    for (ui::ITextComponent* box : boxes) {
        box->validateText();
        box->draw(XuiRootCanvas());
    }
    const bool allowed = digitsOnly(amount.getText()) && amount.getText().size() <= 5 &&
                         digitsOnly(time.getText()) && time.getText().size() <= 6 &&
                         digitsOnly(address.getText()) && address.getText().size() <= 12 &&
                         name.getText().size() <= 8;
    if (!allowed)
        std::abort(); // a policy let through what it must refuse
    return 0;
}

} // namespace

UI_FUZZ_TARGET(entry, entry)
