#include <nolk/core/CStringOperators.h>

#include <nolk/core/CSubString.h>
#include <nolk/core/Hash.h>

#include <cerrno>
#include <cstring>
#include <ostream>

namespace nolk {

CString operator+(const CString& a, const CString& b) {
    return CString(a.data_, a.length(), b.data_, b.length());
}

CString operator+(const CString& a, const char* b) {
    return CString(a.data_, a.length(), b, CString::lengthOf(b));
}

CString operator+(const char* a, const CString& b) {
    return CString(a, CString::lengthOf(a), b.data_, b.length());
}

CString operator+(const CString& a, char b) {
    return CString(a.data_, a.length(), &b, 1);
}

CString operator+(char a, const CString& b) {
    return CString(&a, 1, b.data_, b.length());
}

CString toLower(const CString& text) {
    CString lowered(text);
    lowered.toLower();
    return lowered;
}

CString toUpper(const CString& text) {
    CString raised(text);
    raised.toUpper();
    return raised;
}

CString strXForm(const CString& text) {
    errno = 0;
    const std::size_t size = std::strxfrm(nullptr, text.data(), 0);
    if (errno != 0 || size >= CString::npos - 1) {
        return CString();
    }
    CString transformed('\0', static_cast<unsigned>(size) + 1);
    const bool fits = std::strxfrm(&transformed(0), text.data(), size + 1) <= size;
    return fits ? transformed : CString();
}

std::ostream& operator<<(std::ostream& out, const CString& text) {
    return out << text.view();
}

std::ostream& operator<<(std::ostream& out, const CSubString& text) {
    return out << text.view();
}

unsigned nolkhash(const CString& text) noexcept {
    return text.hash();
}

unsigned nolkhash(const CString* text) noexcept {
    return text == nullptr ? 0 : text->hash();
}

}  // namespace nolk
