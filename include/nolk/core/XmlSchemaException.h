/** @file
 * A value that its schema doesn't allow.
 */
#ifndef NOLK_CORE_XML_SCHEMA_EXCEPTION_H
#define NOLK_CORE_XML_SCHEMA_EXCEPTION_H

#include <nolk/core/Export.h>
#include <nolk/core/XmlException.h>

namespace nolk {

class LocalizedMessage;

/**
 * A value doesn't hold to a facet of its XML Schema type.
 */
class NOLK_API XmlSchemaException : public XmlException {
public:
    /** Text "[KEY] message". */
    XmlSchemaException(const ExceptionInfo& info, const LocalizedMessage& msg);
    XmlSchemaException(const XmlSchemaException& other) = default;
    XmlSchemaException& operator=(const XmlSchemaException& other) = default;
    ~XmlSchemaException() override;

    void raise() const override;
    Exception* clone() const override;
};

}  // namespace nolk

#endif
