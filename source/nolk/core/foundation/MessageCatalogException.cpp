#include <nolk/core/MessageCatalogException.h>

#include <new>

namespace nolk {

MessageCatalogException::MessageCatalogException(const ExceptionInfo& info) : Exception(info) {}

MessageCatalogException::MessageCatalogException(const ExceptionInfo& info,
                                                 const LocalizedMessage& msg)
    : Exception(info, msg) {}

MessageCatalogException::~MessageCatalogException() = default;

void MessageCatalogException::raise() const {
    throw MessageCatalogException(*this);
}

Exception* MessageCatalogException::clone() const {
    return new (std::nothrow) MessageCatalogException(*this);
}

}  // namespace nolk
