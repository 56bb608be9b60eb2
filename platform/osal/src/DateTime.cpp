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
    static const boost::posix_time::ptime epoch(boost::gregorian::date(1970, 1, 1));
    return epoch + boost::posix_time::seconds(long(secondsSinceEpoch));
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
