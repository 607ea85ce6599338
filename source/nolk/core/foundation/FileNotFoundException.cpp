#include <nolk/core/FileNotFoundException.h>

#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>

#include <new>

namespace nolk {

FileNotFoundException::FileNotFoundException(const ExceptionInfo& info, const std::string& fileName)
    : FileException(info), fileName_(fileName) {
    setMessage(message(NOLK_CORE_FILE_NOT_FOUND, fileName).getMessage().c_str());
}

FileNotFoundException::~FileNotFoundException() = default;

void FileNotFoundException::raise() const {
    throw FileNotFoundException(*this);
}

Exception* FileNotFoundException::clone() const {
    return new (std::nothrow) FileNotFoundException(*this);
}

}  // namespace nolk
