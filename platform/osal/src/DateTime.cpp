#include "Internal.hpp"
#include "osal/date_time.hpp"
#include "osal/host.hpp"

#include <boost/date_time/posix_time/posix_time.hpp>

#include <atomic>
#include <ctime>

namespace {
std::atomic<bool> pinned{false};
std::atomic<int64_t> pinnedSeconds{0};
} // namespace

date_time::DateTime date_time::getLocalTime() {
    if (pinned.load())
        return DateTime(pinnedSeconds.load());
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return DateTime(int64_t(now) + local.tm_gmtoff);
}

boost::posix_time::ptime date_time::ptime_from_epoch(int64_t secondsSinceEpoch) {
    // Boost counts in long, 32 bits on the terminal: whole days first, so that a time from
    // 2038 on does not wrap to 1901.
    constexpr int64_t day = 24 * 60 * 60;
    int64_t days = secondsSinceEpoch / day, rest = secondsSinceEpoch % day;
    if (rest < 0) {
        --days;
        rest += day;
    }
    // Outside the calendar's years (1400 to 9999) Boost's day arithmetic would overflow.
    static const boost::gregorian::date epoch(1970, 1, 1);
    static const int64_t first = (boost::gregorian::date(1400, 1, 1) - epoch).days();
    static const int64_t last = (boost::gregorian::date(9999, 12, 31) - epoch).days();
    if (days < first || days > last)
        throw boost::gregorian::bad_year();
    return boost::posix_time::ptime(epoch + boost::gregorian::days(long(days)),
                                    boost::posix_time::seconds(long(rest)));
}

namespace osal::detail {
void resetClock() {
    pinned = false;
}
} // namespace osal::detail

void osal::host::pinClock(int64_t localSecondsSinceEpoch) {
    pinnedSeconds = localSecondsSinceEpoch;
    pinned = true;
}

void osal::host::unpinClock() {
    pinned = false;
}
