// Logging of the platform-support library: LOG(level) << ... writes one line when the global
// configuration admits the level; LogException reports an error caught somewhere, with its
// source file name and line.
#pragma once

#include <atomic>
#include <exception>
#include <sstream>
#include <string>

namespace boost {
class exception;
}

// Higher is more severe. A message is written when its level is at least the configured one.
enum class LogLevel : int { Debug = 0, Info = 1, Warning = 2, Error = 3, Fatal = 4 };

class LogConfig {
public:
    LogLevel level() const { return level_.load(std::memory_order_relaxed); }
    void setLevel(LogLevel level) { level_.store(level, std::memory_order_relaxed); }
    bool admits(LogLevel level) const { return int(level) >= int(this->level()); }

private:
    std::atomic<LogLevel> level_{LogLevel::Info};
};

LogConfig& GetGlobalLogConfig();

namespace osal::detail {
// Collects one message and writes it as a single line when destroyed.
class LogLine {
public:
    LogLine(LogLevel level, const char* file, int line);
    LogLine(const LogLine&) = delete;
    LogLine& operator=(const LogLine&) = delete;
    ~LogLine();
    std::ostream& stream() { return stream_; }

private:
    LogLevel level_;
    std::ostringstream stream_;
};
} // namespace osal::detail

#define LOG(level)                                                                                           \
    if (!GetGlobalLogConfig().admits(level))                                                                 \
        ;                                                                                                    \
    else                                                                                                     \
        ::osal::detail::LogLine((level), __FILE__, __LINE__).stream()

void LogException(const char* source, int line);
void LogException(const char* source, int line, const std::exception& error);
void LogException(const char* source, int line, const boost::exception& error);
