/** @file
 * Reads the place of a virtual operation in its class's table.
 */
#ifndef NOLK_TESTS_FOUNDATION_SLOT_ORDER_H
#define NOLK_TESTS_FOUNDATION_SLOT_ORDER_H

#include <cstdint>
#include <cstring>

namespace nolk {

/**
 * The index of a virtual operation, counted from 0. A destructor takes two entries. Both platforms
 * keep one plus the byte offset of the entry in the first word of a pointer to member.
 */
template <typename Member>
std::size_t slotOf(Member member) {
    std::uintptr_t word = 0;
    static_assert(sizeof(member) >= sizeof(word));
    std::memcpy(&word, &member, sizeof(word));
    return (word - 1) / sizeof(void*);
}

}  // namespace nolk

#endif
