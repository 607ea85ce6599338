/** @file
 * Lets a test run in a time zone of its choice.
 */
#ifndef NOLK_TESTS_SUPPORT_PROCESS_ZONE_H
#define NOLK_TESTS_SUPPORT_PROCESS_ZONE_H

#include <optional>
#include <string>

namespace nolk::test {

/**
 * While it lives, the run-time library's zone is the one that the environment variable TZ tells as
 * `zone`, such as "EST5EDT", which both platforms know. Of several, the last one made
 * goes first. For programs without other threads.
 */
class ProcessZone {
public:
    explicit ProcessZone(const char* zone);
    ~ProcessZone();
    ProcessZone(const ProcessZone&) = delete;
    ProcessZone& operator=(const ProcessZone&) = delete;

private:
    std::optional<std::string> before_;
};

}  // namespace nolk::test

#endif
