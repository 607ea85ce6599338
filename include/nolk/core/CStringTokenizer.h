/** @file
 * Words of a byte string.
 */
#ifndef NOLK_CORE_CSTRING_TOKENIZER_H
#define NOLK_CORE_CSTRING_TOKENIZER_H

#include <nolk/core/CString.h>
#include <nolk/core/CSubString.h>
#include <nolk/core/Export.h>

namespace nolk {

class ByteSet;

/**
 * Takes a CString apart at its delimiters, one token a call.
 *
 *     CStringTokenizer next("one two");
 *     while (!next.done()) {
 *         const CSubString word = next();
 *     }
 *
 * Holds a copy of the text, which shares the buffer where it can. The tokens are substrings of that
 * copy and live as long as the tokenizer; to assign to one is to write into the text.
 *
 * Delimiters are a terminated text, n bytes, all bytes of a CString, or " \t\n" without an
 * argument. The two operations may be mixed.
 */
class NOLK_API CStringTokenizer {
public:
    explicit CStringTokenizer(const CString& text);
    CStringTokenizer(const CStringTokenizer& other) = default;
    CStringTokenizer& operator=(const CStringTokenizer& other) = default;
    virtual ~CStringTokenizer();

    /** Whether the position is at the end or behind it. There may be no token left before that. */
    bool done() const noexcept { return position_ >= text_.length(); }

    /**
     * The next token that isn't empty: runs of delimiters are skipped. At the end a null substring.
     * With terminated delimiters, and with those of no argument, zero bytes separate too; with
     * counted ones, those of a CString among them, only if they are delimiters.
     */
    CSubString operator()();
    CSubString operator()(const char* delimiters);
    CSubString operator()(const char* delimiters, unsigned n);
    CSubString operator()(const CString& delimiters);

    /**
     * The text up to the next delimiter, which may be empty: each delimiter separates. No empty
     * token follows a delimiter at the end; a null substring does.
     */
    CSubString nextToken();
    CSubString nextToken(const char* delimiters);
    CSubString nextToken(const char* delimiters, unsigned n);
    CSubString nextToken(const CString& delimiters);

private:
    CSubString token(const ByteSet& delimiters);
    CSubString separated(const ByteSet& delimiters);

    CString text_;
    unsigned position_ = 0;
};

}  // namespace nolk

#endif
