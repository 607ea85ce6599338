/** @file
 * Reads the zone data of the machine, for tests that need an oracle. Both platforms read the same
 * files: Wine shows those of its host.
 */
#ifndef NOLK_TESTS_SUPPORT_ZONE_FILE_H
#define NOLK_TESTS_SUPPORT_ZONE_FILE_H

#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

namespace nolk::test {

/** The changes of one zone, up to 2037. */
class ZoneFile {
public:
    /** What holds from an instant on. */
    struct Change {
        std::int64_t from;   /**< Seconds since 1970. */
        std::int64_t offset; /**< Seconds east of GMT. */
        bool daylight;
        std::string name;
    };

    /** By a name such as "America/New_York". @throws std::runtime_error if there is no such file */
    explicit ZoneFile(const std::string& name);

    /** In the order of time. */
    const std::vector<Change>& changes() const { return changes_; }

    /** What holds at an instant. */
    const Change& at(std::int64_t seconds) const;

    /** Its civil time, all nine standard fields. */
    std::tm civil(std::int64_t seconds) const;

private:
    std::vector<Change> changes_;
};

/** The civil time of an instant in seconds since 1970 at an offset in seconds east of GMT. */
std::tm civilAt(std::int64_t seconds, std::int64_t offset);

/** The seconds from 1970 to 0:00 of a day. */
std::int64_t secondsAt(int year, int month, int day);

}  // namespace nolk::test

#endif
