/** @file
 * A failure around XML.
 */
#ifndef NOLK_CORE_XML_EXCEPTION_H
#define NOLK_CORE_XML_EXCEPTION_H

#include <nolk/core/Exception.h>
#include <nolk/core/Export.h>

namespace nolk {

class LocalizedMessage;

/**
 * Reading, writing or checking XML failed; the classes below tell how.
 */
class NOLK_API XmlException : public Exception {
public:
    /** The record alone; the text stays empty. */
    explicit XmlException(const ExceptionInfo& info);
    /** Text "[KEY] message". */
    XmlException(const ExceptionInfo& info, const LocalizedMessage& msg);
    XmlException(const XmlException& other) = default;
    XmlException& operator=(const XmlException& other) = default;
    ~XmlException() override;

    void raise() const override;
    Exception* clone() const override;
};

}  // namespace nolk

#endif
