/** @file
 * A failure of message catalogs.
 */
#ifndef NOLK_CORE_MESSAGE_CATALOG_EXCEPTION_H
#define NOLK_CORE_MESSAGE_CATALOG_EXCEPTION_H

#include <nolk/core/Exception.h>
#include <nolk/core/Export.h>

namespace nolk {

class LocalizedMessage;

/**
 * A message catalog can't be loaded or used.
 */
class NOLK_API MessageCatalogException : public Exception {
public:
    /** The record alone; the text stays empty. */
    explicit MessageCatalogException(const ExceptionInfo& info);
    /** Text "[KEY] message". */
    MessageCatalogException(const ExceptionInfo& info, const LocalizedMessage& msg);
    MessageCatalogException(const MessageCatalogException& other) = default;
    MessageCatalogException& operator=(const MessageCatalogException& other) = default;
    ~MessageCatalogException() override;

    void raise() const override;
    Exception* clone() const override;
};

}  // namespace nolk

#endif
