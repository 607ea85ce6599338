/** @file
 * The tag of constructors that leave an object's state alone.
 */
#ifndef NOLK_CORE_STATIC_CTOR_H
#define NOLK_CORE_STATIC_CTOR_H

namespace nolk {

/**
 * Selects a constructor that leaves the state of the object as it is.
 *
 * Such a constructor is for objects of static storage duration that other static initialisers may
 * have used before: the storage is zero before any constructor runs, and what has been written
 * since then stays. A library that defines such constructors of its own compiles them with
 * `-flifetime-dse=1`, so that the compiler keeps those earlier writes.
 */
enum StaticCtor { staticCtor };

}  // namespace nolk

#endif
