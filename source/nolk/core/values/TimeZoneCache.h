/** @file
 * The zones of the process.
 */
#ifndef NOLK_CORE_VALUES_TIME_ZONE_CACHE_H
#define NOLK_CORE_VALUES_TIME_ZONE_CACHE_H

namespace nolk {

/**
 * Deletes the local, standard, system and UTC zones that the library made for TimeZone, so that
 * they are made anew when they are asked for. A zone that a caller has set stays set. One that the
 * library made and a caller has replaced is in the caller's hands, and stays, too.
 *
 * For times when no other thread uses a zone.
 */
void releaseTimeZones() noexcept;

}  // namespace nolk

#endif
