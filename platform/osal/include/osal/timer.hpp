// Elapsed-time measurement on the platform's monotonic clock.
#pragma once

#include <cstdint>

class ITimer {
public:
    virtual ~ITimer() = default;
    // Milliseconds since construction or the last restart.
    virtual int64_t elapsed() const = 0;
    virtual void restart() = 0;
};

class Timer : public ITimer {
public:
    Timer();
    int64_t elapsed() const override;
    void restart() override;

private:
    int64_t start_;
};

namespace osal {
// Milliseconds on the platform's monotonic clock.
int64_t monotonicMs();
} // namespace osal
