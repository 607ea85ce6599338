// A pattern of up to 64 bytes behind its length, and a subject of up to 256 behind it, in both
// flavours. Searches, iterates and replaces; what is found lies where it may, and a search that is
// done again finds the same.
#include "FuzzInput.h"

#include <nolk/core/Regex.h>
#include <nolk/core/RegexMatchIterator.h>

#include <string>

namespace {

constexpr unsigned npos = ~0u;

template <typename T>
void check(const nolk::RegexResult<T>& result, unsigned start, unsigned end) {
    if (!result) {
        return;
    }
    require(result.getStart(0) >= start && result.getStart(0) <= end, "a match lies in the range");
    for (unsigned i = 0; i < result.size(); ++i) {
        require(result.getStart(i) != npos || result.getLength(i) == 0, "unset groups are empty");
        require(result.getStart(i) == npos || result.getLength(i) <= end - result.getStart(i),
                "a group lies in the range");
    }
}

template <typename T>
void search(const std::string& narrowPattern, const std::string& narrowText) {
    const std::basic_string<T> pattern(narrowPattern.begin(), narrowPattern.end());
    const std::basic_string<T> text(narrowText.begin(), narrowText.end());
    const auto size = static_cast<unsigned>(text.size());
    try {
        nolk::Regex<T> regex(pattern);
        const nolk::RegexResult<T> first = regex.search(text);
        check(first, 0, size);
        check(regex.matchAt(text, size / 2), size / 2, size);
        check(regex.search(text, size / 3, size / 2), size / 3, size / 2);
        const nolk::RegexResult<T> again = nolk::Regex<T>(regex).search(text);
        require(again.getStart(0) == first.getStart(0) && again.getLength(0) == first.getLength(0),
                "a search finds the same again");
        std::basic_string<T> replaced = text;
        const unsigned done = regex.replace(replaced, pattern, 5, 0, 0, npos, true);
        require(done <= 5, "no more is replaced than was asked for");
    } catch (const nolk::RegexException&) {
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const std::string pattern = input.text(input.byte() % 65);
    const std::string text = input.text(256);
    search<char>(pattern, text);
    search<nolk::UChar>(pattern, text);
    return 0;
}
