// What the stand-in's parts tell one another.
#pragma once

#include <chrono>
#include <string>

namespace osal::detail {

// Resets of each part, called by osal::host::reset.
void resetLog();
void resetLocalization();
void resetResources();
void resetDevice();
void resetClock();

// In virtual time, advances the clock by time and returns true: the caller need not wait.
bool passTimeAtOnce(std::chrono::milliseconds time);

// The calling thread sleeps, has slept, or did something worth naming when it is waited for.
void sleepBegins(unsigned milliseconds);
void sleepEnds();
void noteDone(const std::string& what);

// A text handed out for display: a string looked up, or a text given to be laid out in lines.
void textGiven(const std::string& text, bool lookedUp);

} // namespace osal::detail
