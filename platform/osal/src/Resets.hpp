// Resets of each part of the stand-in, called by osal::host::reset.
#pragma once

namespace osal::detail {
void resetLog();
void resetLocalization();
void resetResources();
void resetDevice();
void resetClock();
} // namespace osal::detail
