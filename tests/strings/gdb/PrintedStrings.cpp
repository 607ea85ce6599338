// The strings that printers_test.py looks at when the program has come to show().
#include <nolk/core/CString.h>
#include <nolk/core/UString.h>

#include <string>

namespace {

[[gnu::noinline]] void show() {
    asm volatile("");
}

// Another owner's array, as a message would hold it.
struct Holder {
    nolk::CString name;
    nolk::UString title;
};

}  // namespace

int main() {
    const std::string alphabet = "abcdefghijklmnopqrstuvwxyz";

    nolk::CString emptyBytes;
    nolk::CString shortBytes("abc");
    nolk::CString zeroBytes("a\0b", 3);
    nolk::CString highBytes("caf\xC3\xA9");
    nolk::CString longBytes(alphabet + alphabet + alphabet);
    nolk::CString sharedBytes(longBytes);
    nolk::CSubString partOfBytes = shortBytes(1, 2);
    nolk::CSubString tailOfBytes = shortBytes(2, 100);
    nolk::CSubString noBytes = shortBytes(nolk::CString::npos, 0);

    nolk::UString emptyUnits;
    nolk::UString shortUnits("abc");
    nolk::UString zeroUnits("a\0b", 3);
    nolk::UString highUnits("caf\xC3\xA9 \xF0\x9F\x98\x80");
    nolk::UString longUnits(alphabet);
    nolk::UString sharedUnits(longUnits);
    const nolk::UChar kept[] = {'k', 'e', 'p', 't', 0};
    nolk::UString borrowedUnits(kept, 3, nolk::UString::persistent);
    nolk::UString unmeasuredUnits(kept, nolk::UString::persistent);

    Holder holder{shortBytes, shortUnits};
    show();
    return emptyBytes.isNull() ? 0 : 1;
}
