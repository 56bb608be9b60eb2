#include "osal/log.hpp"
#include "Internal.hpp"
#include "osal/host.hpp"

#include <boost/exception/diagnostic_information.hpp>
#include <boost/exception/exception.hpp>

#include <cstring>
#include <iostream>
#include <mutex>

namespace {

struct LogState {
    std::mutex mutex;
    std::function<void(LogLevel, const std::string&)> sink;
    std::vector<osal::host::ExceptionReport> reports;
};

LogState& logState() {
    // Never destroyed: threads and statics may log while the process exits.
    static LogState& s = *new LogState;
    return s;
}

const char* levelName(LogLevel level) {
    static const char* names[] = {"DEBUG", "INFO", "WARNING", "ERROR", "FATAL"};
    int i = int(level);
    return i >= 0 && i < 5 ? names[i] : "?";
}

void write(LogLevel level, const std::string& line) {
    auto& s = logState();
    std::lock_guard<std::mutex> lock(s.mutex);
    if (s.sink)
        s.sink(level, line);
    else
        std::cerr << "[" << levelName(level) << "] " << line << std::endl;
}

void report(const char* source, int line, std::string what) {
    {
        auto& s = logState();
        std::lock_guard<std::mutex> lock(s.mutex);
        s.reports.push_back({source ? source : "", line, what});
    }
    if (GetGlobalLogConfig().admits(LogLevel::Error)) {
        std::string text = std::string(source ? source : "?") + ":" + std::to_string(line) + ": exception";
        if (!what.empty())
            text += ": " + what;
        write(LogLevel::Error, text);
    }
}

const char* baseName(const char* path) {
    const char* slash = std::strrchr(path, '/');
    return slash ? slash + 1 : path;
}

} // namespace

LogConfig& GetGlobalLogConfig() {
    static LogConfig& config = *new LogConfig; // never destroyed
    return config;
}

namespace osal::detail {

LogLine::LogLine(LogLevel level, const char* file, int line) : level_(level) {
    stream_ << baseName(file) << ":" << line << ": ";
}

LogLine::~LogLine() {
    try {
        write(level_, stream_.str());
    } catch (...) {
        // A log line must never take its caller down.
    }
}

void resetLog() {
    GetGlobalLogConfig().setLevel(LogLevel::Info);
    auto& s = logState();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.sink = nullptr;
    s.reports.clear();
}

} // namespace osal::detail

void LogException(const char* source, int line) {
    report(source, line, "");
}

void LogException(const char* source, int line, const std::exception& error) {
    report(source, line, error.what());
}

void LogException(const char* source, int line, const boost::exception& error) {
    report(source, line, boost::diagnostic_information(error));
}

namespace osal::host {

void setLogSink(std::function<void(LogLevel, const std::string&)> sink) {
    auto& s = logState();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.sink = std::move(sink);
}

std::vector<ExceptionReport> exceptionReports() {
    auto& s = logState();
    std::lock_guard<std::mutex> lock(s.mutex);
    return s.reports;
}

void clearExceptionReports() {
    auto& s = logState();
    std::lock_guard<std::mutex> lock(s.mutex);
    s.reports.clear();
}

void reset() {
    osal::detail::resetLog();
    osal::detail::resetLocalization();
    osal::detail::resetResources();
    osal::detail::resetDevice();
    osal::detail::resetClock();
}

} // namespace osal::host
