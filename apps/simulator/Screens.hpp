// The demo's screens, drawn headless into the stand-in's panel.
#pragma once

#include <string>

namespace demo {

// Draws the label showcase and saves the panel as a PNG; false when the file cannot be written.
bool renderLabelShowcase(const std::string& path);

} // namespace demo
