// What the tests of CString share.
#ifndef NOLK_TESTS_STRINGS_CSTRING_SUPPORT_H
#define NOLK_TESTS_STRINGS_CSTRING_SUPPORT_H

#include <nolk/core/CString.h>
#include <nolk/core/OutOfBoundsException.h>

#include <clocale>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

namespace nolk::test {

inline bool isInline(const CString& text) {
    const auto object = reinterpret_cast<std::uintptr_t>(&text);
    const auto data = reinterpret_cast<std::uintptr_t>(text.data());
    return data - object < sizeof text;
}

inline bool shareBuffer(const CString& a, const CString& b) {
    return a.data() == b.data();
}

/** The text of the OutOfBoundsException that the action throws; empty if it throws none. */
template <typename Action>
std::string boundsFailure(const Action& action) {
    try {
        action();
    } catch (const OutOfBoundsException& failure) {
        return failure.what();
    }
    return std::string();
}

/** Sets a category of the C locale to the first of these that exists, until the end of a scope. */
class InLocale {
public:
    InLocale(int category, std::initializer_list<const char*> names)
        : category_(category), old_(std::setlocale(category, nullptr)) {
        for (const char* name : names) {
            if (std::setlocale(category, name) != nullptr) {
                name_ = name;
                break;
            }
        }
    }
    ~InLocale() { std::setlocale(category_, old_.c_str()); }
    InLocale(const InLocale&) = delete;
    InLocale& operator=(const InLocale&) = delete;

    std::string_view name() const { return name_; }

private:
    int category_;
    std::string old_;
    std::string_view name_;
};

/** Sets `maxWaste` until the end of a scope. */
class WithMaxWaste {
public:
    explicit WithMaxWaste(unsigned n) : old_(CString::maxWaste(n)) {}
    ~WithMaxWaste() { CString::maxWaste(old_); }
    WithMaxWaste(const WithMaxWaste&) = delete;
    WithMaxWaste& operator=(const WithMaxWaste&) = delete;

private:
    unsigned old_;
};

}  // namespace nolk::test

#endif
