// Host-only controls of the platform-support stand-in, for tests and the simulator. They are a
// target of their own (osal_host) that the library does not link: including this header from
// the library is a build error, as it would be on a terminal.
#pragma once

#include <osal/localization.hpp>
#include <osal/log.hpp>
#include <osal/resource.hpp>

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace osal::host {

// Restores every default below (log sink, strings, currency, palette, clock, capabilities,
// beeps, exception reports).
void reset();

// Logging: every written line goes to the sink (default: standard error).
void setLogSink(std::function<void(LogLevel, const std::string&)> sink);

struct ExceptionReport {
    std::string source;
    int line = 0;
    std::string what; // empty when no exception object was given
};
std::vector<ExceptionReport> exceptionReports();
void clearExceptionReports();

// Strings: "id=text" lines, '#' starts a comment. Without a call, "res/strings/en.txt" is read
// on first use. Returns false when the file cannot be read (the table is then left as it was).
bool loadStrings(const std::string& path);
void setString(int id, const std::string& text);
void clearStrings();

// Pseudo-localization: every string read is made longer, as a translation would make it, by
// factor of its characters (1.4: 40 % longer), its letters accented ("Sále") and "[" "]" at both
// ends, so that a screen shows whether a long translation fits and where a text was cut. 0 turns
// it off (the default).
void setPseudoLocalization(double factor);

void setCurrency(const localization::Currency& currency);
// Makes getDefaultCurrency throw, as when the terminal has no currency configured.
void setCurrencyUnavailable(bool unavailable);

void setColor(resource::BrandingColorId id, unsigned rgba);

void setCapabilities(bool battery, bool ethernet);

// The local clock. Pinned, it stays at the given local seconds since the epoch.
void pinClock(int64_t localSecondsSinceEpoch);
void unpinClock();

// Virtual time for the monotonic clock: device::sleep then advances it at once, and so does a
// timed wait on an event that nobody has ever signalled (a pause in a timed sequence, such as
// the contactless indicator's); a timed wait for someone's signal still takes its real time.
void useVirtualTime(bool enabled);
void advanceTime(std::chrono::milliseconds by);

// Beeps, instead of a speaker.
struct Beep {
    unsigned frequencyHz = 0;
    unsigned durationMs = 0;
    int64_t atMs = 0; // monotonic clock
};
std::vector<Beep> beeps();
void clearBeeps();
// Adds a listener called with each beep as it sounds, on the beeping thread: for a simulator
// that plays them and recorders that watch them. Any number may listen, each added and removed
// by its owner (reset() leaves them).
int addBeepListener(std::function<void(const Beep&)> listener);
void removeBeepListener(int id);

// Texts handed out for display: every string looked up (Localization::getLocalizedString) and
// every text given to be laid out in lines (split into words on spaces), on the thread that
// asked. A test compares them with what was drawn: a text given but not drawn whole is cut.
struct GivenText {
    std::string text;
    bool lookedUp = false; // a localized string, or else a text laid out
    std::thread::id thread;
};
int addTextListener(std::function<void(const GivenText&)> listener);
void removeTextListener(int id);

// Threads at work. The stand-in sees every thread that signals or waits on an
// AutomaticResetEvent, sleeps or beeps. A thread is at work from the moment it takes a signal
// that a thread not itself at work gave (a request: a state change, a redraw asked for) until it
// waits for someone again; a thread that sleeps, or pauses on an event nobody ever signals (a
// step of a timed sequence), is at work while it does. Returns once no thread but the caller is
// at work and no request waits to be taken (a thread just started takes it once it first waits,
// so it is waited for too; a request to an event nobody ever waits on is never taken); false
// on time-out.
bool waitUntilSettled(std::chrono::milliseconds timeout);
// What keeps waitUntilSettled waiting, in words ("thread 3 sleeping 400 ms, last beep 750 Hz
// 200 ms"); empty when nothing does.
std::string unsettled();

} // namespace osal::host
