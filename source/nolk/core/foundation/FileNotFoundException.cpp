#include <nolk/core/FileNotFoundException.h>

#include <nolk/core/MessageIds.h>

#include "nolk/core/foundation/FixedText.h"

#include <new>

namespace nolk {

FileNotFoundException::FileNotFoundException(const ExceptionInfo& info, const std::string& fileName)
    : FileException(info), fileName_(fileName) {
    setMessage(fixedText(NOLK_CORE_FILE_NOT_FOUND, fileName).c_str());
}

FileNotFoundException::~FileNotFoundException() = default;

void FileNotFoundException::raise() const {
    throw FileNotFoundException(*this);
}

Exception* FileNotFoundException::clone() const {
    return new (std::nothrow) FileNotFoundException(*this);
}

}  // namespace nolk
