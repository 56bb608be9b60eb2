// The card reader's and the header's controls a front end offers, by the letter the window's
// keys and the page's buttons share.
#pragma once

#include <ui/session/Script.hpp>

namespace ui::simulator {

// 't' taps an approved card, 'd' a declined one; 'b' battery, 'e' Ethernet, 's' signal, 'f' flight
// mode, 'o' offline count and 'u' update move the header's state on, each only if the
// application has it. Returns false for a control the application does not take.
bool operate(char control, ui::session::Application& app, const ui::session::HeaderFeatures& features);

} // namespace ui::simulator
