// Everything the library offers, in one include.
#pragma once

#include "ui/ContactlessStatusIndicator.hpp"
#include "ui/GraphicsDevice.hpp"
#include "ui/Header.hpp"
#include "ui/IGraphics.hpp"
#include "ui/Image.hpp"
#include "ui/KeyBoard.hpp"
#include "ui/Label.hpp"
#include "ui/Menu.hpp"
#include "ui/ProgressBar.hpp"
#include "ui/UserInterface.hpp"
#include "ui/Widget.hpp"
#include "ui/Window.hpp"
#include "ui/Xui.hpp"
#include "utl/thread.hpp"
#include "utl/thread_pool.hpp"
