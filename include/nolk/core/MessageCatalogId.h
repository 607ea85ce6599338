/** @file
 * The name of a message and its built-in text.
 */
#ifndef NOLK_CORE_MESSAGE_CATALOG_ID_H
#define NOLK_CORE_MESSAGE_CATALOG_ID_H

namespace nolk {

/**
 * Names a message by component and key, and carries its built-in English text.
 *
 * A plain value of three pointers to static text, never owned. Other libraries may define ids of
 * their own components in the same way as MessageIds.h does:
 *
 *     constinit const MessageCatalogId MY_NO_DISK("MY", "NO_DISK", "Disk %1% is missing");
 *
 * Ids are immutable and may be read by all threads.
 */
struct MessageCatalogId {
    /** @pre The three pointers aren't null and point to text that outlives the id. */
    constexpr MessageCatalogId(const char* idComponent, const char* idKey, const char* idText)
        : component(idComponent), key(idKey), defaultText(idText) {}

    /** The catalog's component, such as "NOLK_CORE". */
    const char* component;
    /** The key inside the component, such as "BOUNDS_ILLEGAL_INDEX". */
    const char* key;
    /** The built-in English text, with placeholders "%1%", "%2%" and so on. */
    const char* defaultText;
};

}  // namespace nolk

#endif
