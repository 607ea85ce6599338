/** @file
 * A message text under construction.
 */
#ifndef NOLK_CORE_LOCALIZED_MESSAGE_H
#define NOLK_CORE_LOCALIZED_MESSAGE_H

#include <nolk/core/Export.h>
#include <nolk/core/MessageCatalogId.h>

#include <cstdint>
#include <string>

namespace nolk {

/**
 * A message in the user's language, into which the variable parts are put one call at a time.
 *
 * A value: made from an id, filled with `replace` once per placeholder in ascending order, and
 * handed to an exception or a log entry. Placeholders are written "%1%", "%2%" and so on, a
 * literal percent sign "%%".
 *
 *     LocalizedMessage text(NOLK_CORE_BOUNDS_ILLEGAL_INDEX);
 *     text.replace(5);
 *     text.replace(3);
 *     text.getMessage();  // "Illegal Index (5) for collection or string with 3 elements"
 *
 * One object belongs to one thread at a time; messages may be made in several threads at once.
 */
class NOLK_API LocalizedMessage {
public:
    /**
     * Starts with the id's text in the current locale, or its built-in text, and expects "%1%".
     * @throws std::bad_alloc
     */
    LocalizedMessage(const MessageCatalogId& id);
    /** A copy continues at the same placeholder. */
    LocalizedMessage(const LocalizedMessage& other) = default;
    LocalizedMessage& operator=(const LocalizedMessage& other) = default;
    virtual ~LocalizedMessage();

    /** The id's key, without its component. */
    std::string getIdentifier() const { return identifier_; }

    /** The text as it stands; placeholders not yet filled show as they are written. */
    std::string getMessage() const { return message_; }

    /**
     * Fills the next placeholder with the argument's text.
     *
     * Only the first occurrence is filled, and one right behind a "%" is none. A text without the
     * placeholder stays, and the next call looks for the next number all the same. Once the first
     * percent sign left in the text begins a pair "%%", or none is left, all pairs become single
     * percent signs; an argument that holds percent signs itself can put this off, and it may be
     * searched for further occurrences in ways that callers shouldn't rely on.
     *
     * Texts of the arguments:
     * - characters: themselves; a zero byte gives an empty text
     * - `short` to `long`, signed: decimal; `unsigned short` likewise
     * - `unsigned int`: as a signed 32-bit number, so that 3000000000u reads "-1294967296"
     * - `unsigned long`: decimal
     * - `long long` and `unsigned long long`: as a signed 64-bit number
     * - `float`, `double`: at most 6 and 15 significant digits, with an exponent if that is
     * shorter, as a stream writes them under the global `std::locale`
     * - `long double`: six decimals, cut back by their trailing zeroes
     *
     * Should the memory run out while the text is put in, it stays as it was, and the call returns
     * normally. @throws std::bad_alloc only while the argument is formatted or the text is saved.
     */
    void replace(const std::string& argument);
    void replace(char argument);
    void replace(unsigned char argument);
    void replace(short argument);
    void replace(unsigned short argument);
    void replace(int argument);
    void replace(unsigned int argument);
    void replace(long argument);
    void replace(unsigned long argument);
    void replace(long long argument);
    void replace(unsigned long long argument);
    void replace(float argument);
    void replace(double argument);
    void replace(long double argument);

private:
    bool fillPlaceholder(const std::string& argument);
    bool keepsPairs(const std::string& argument) const;
    void collapsePairs();

    std::string identifier_;
    std::string message_;
    std::uint32_t nextArgument_;
};

/**
 * Builds a message and fills its placeholders with the arguments, in their order.
 *
 *     throw XmlException(here(), message(NOLK_CORE_XML_PARSE_NO_END_TAG, name));
 *
 * @throws std::bad_alloc
 */
template <typename... Arguments>
[[nodiscard]] LocalizedMessage message(const MessageCatalogId& id, const Arguments&... arguments) {
    LocalizedMessage text(id);
    (text.replace(arguments), ...);
    return text;
}

}  // namespace nolk

#endif
