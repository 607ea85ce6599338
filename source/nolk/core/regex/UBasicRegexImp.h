#ifndef NOLK_CORE_REGEX_UBASIC_REGEX_IMP_H
#define NOLK_CORE_REGEX_UBASIC_REGEX_IMP_H

#include <nolk/core/UString.h>
#include <nolk/core/regex/RegexImp.h>

namespace nolk {

/** What searches behind a URegex. One for each level that is known. */
class URegexImp {
public:
    virtual ~URegexImp() = default;

    virtual unsigned subCount() const = 0;
    /** Compare RegexImp. @pre `end` is at most the subject's length */
    virtual bool search(const UString& subject, unsigned start, unsigned end,
                        RegexResult<UChar>& result) = 0;
    virtual bool matchAt(const UString& subject, unsigned start, unsigned end,
                         RegexResult<UChar>& result) = 0;
};

/** Level 0: the engine over code units. */
class UBasicRegexImp final : public URegexImp, private RegexImp<UChar> {
public:
    using Engine = RegexImp<UChar>;

    explicit UBasicRegexImp(const UString& pattern) : Engine(pattern.data(), pattern.length()) {}

    unsigned subCount() const override { return Engine::subCount(); }
    bool search(const UString& subject, unsigned start, unsigned end,
                RegexResult<UChar>& result) override {
        return Engine::search(subject.data(), start, end, result);
    }
    bool matchAt(const UString& subject, unsigned start, unsigned end,
                 RegexResult<UChar>& result) override {
        return Engine::matchAt(subject.data(), start, end, result);
    }
};

}  // namespace nolk

#endif
