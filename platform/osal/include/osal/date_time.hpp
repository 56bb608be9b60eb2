// The terminal's clock.
#pragma once

#include <boost/date_time/posix_time/posix_time_types.hpp>

#include <cstdint>

namespace date_time {

class DateTime {
public:
    explicit DateTime(int64_t secondsSinceEpoch) : seconds_(secondsSinceEpoch) {}
    // Seconds since 1970-01-01 00:00 in local time (the time zone offset is applied).
    int64_t get() const { return seconds_; }

private:
    int64_t seconds_;
};

DateTime getLocalTime();
boost::posix_time::ptime ptime_from_epoch(int64_t secondsSinceEpoch);

} // namespace date_time
