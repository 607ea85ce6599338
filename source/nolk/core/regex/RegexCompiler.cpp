// Compiles a pattern in passes. What becomes of `x(a|bc)+` on the way:
//
//   characters   x  (  a  |  b  c  )  +
//   marks           (  4  |        )         and 5 on the `)`
//   tokens       9  1  4  9  3  9  5  2  11  0  0
//   nodes        0  1  2  3     4               5 6   literal, group, head, literal, text, ends
#include <nolk/core/regex/RegexCompiler.h>

#include <nolk/core/ExceptionInfo.h>
#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/RegexException.h>
#include <nolk/core/regex/RegexAnalysis.h>
#include <nolk/core/regex/RegexNodeBuilder.h>
#include <nolk/core/regex/RegexTables.h>
#include <nolk/core/regex/RegexTokenLinker.h>
#include <nolk/core/regex/RegexTokenizer.h>

#include <source_location>

namespace nolk {

template <typename T>
RegexCompiler<T>::RegexCompiler(const T* pattern, std::uint32_t length, RegexProgram<T>& program)
    : pattern_(pattern), length_(length), program_(program) {}

template <typename T>
void RegexCompiler<T>::compile() {
    try {
        RegexTokenizer<T>(pattern_, length_, tokens_).run();
        const RegexTokenLinker::Anchors anchors = RegexTokenLinker(tokens_).run(length_);
        program_.isStartAnchored = anchors.isStartAnchored;
        program_.isEndAnchored = anchors.isEndAnchored;
        program_.neverMatches = anchors.neverMatches;
        RegexNodeBuilder<T>(pattern_, length_, tokens_, program_).run();
        RegexAnalysis<T>(program_).run();
    } catch (const RegexFault<T>& fault) {
        regexThrow(fault.code, fault.position);
    }
}

template <typename T>
void RegexCompiler<T>::regexThrow(unsigned code, const T* position) const {
    const unsigned long line = std::source_location::current().line();
    throw RegexException(ExceptionInfo(Unit::file, line, Unit::function),
                         LocalizedMessage(*regextables::messages[code]), code,
                         static_cast<unsigned>(position - pattern_));
}

template class RegexCompiler<char>;
template class RegexCompiler<UChar>;

}  // namespace nolk
