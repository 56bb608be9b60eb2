// Everything the library offers, in one include.
#pragma once

#include "ui/Label.hpp"
#include "ui/Widget.hpp"
#include "ui/Xui.hpp"
