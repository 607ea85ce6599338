/** @file
 * Words of a standard string.
 */
#ifndef NOLK_CORE_STRING_TOKENIZER_H
#define NOLK_CORE_STRING_TOKENIZER_H

#include <nolk/core/Export.h>

#include <string>
#include <string_view>

namespace nolk {

/**
 * Takes a std::string apart at its delimiters, one token a call.
 *
 *     StringTokenizer next("one two");
 *     while (!next.done()) {
 *         std::string word = next();
 *     }
 *
 * Holds a copy of the text. Delimiters are a terminated text, n bytes, a std::string, or " \t\n"
 * without an argument. The two operations may be mixed. @throws std::bad_alloc for want of memory
 */
class NOLK_API StringTokenizer {
public:
    /** @throws std::length_error for a text of 4 GiB - 1 bytes or more */
    explicit StringTokenizer(const std::string& text);
    StringTokenizer(const StringTokenizer& other) = default;
    StringTokenizer& operator=(const StringTokenizer& other) = default;
    virtual ~StringTokenizer();

    /** Whether a call found the end of the text. Before the first call it is false. */
    bool done() const noexcept { return finished_; }

    /**
     * The next token: runs of delimiters are skipped. Where only delimiters are left, as behind the
     * last of "a b ", one empty text is given; once done, always.
     */
    std::string operator()();
    std::string operator()(const char* delimiters);
    std::string operator()(const char* delimiters, unsigned n);
    std::string operator()(const std::string& delimiters) { return token(delimiters); }

    /**
     * The text up to the next delimiter, which may be empty: each delimiter separates. No empty
     * token follows a delimiter at the end. Once done, always an empty text.
     */
    std::string nextToken();
    std::string nextToken(const char* delimiters);
    std::string nextToken(const char* delimiters, unsigned n);
    std::string nextToken(const std::string& delimiters) { return separated(delimiters); }

private:
    std::string token(std::string_view delimiters);
    std::string separated(std::string_view delimiters);

    std::string text_;
    unsigned length_;
    unsigned position_ = 0;
    bool finished_ = false;
};

}  // namespace nolk

#endif
