#ifndef NOLK_CORE_XML_XML_READER_ASIDE_H
#define NOLK_CORE_XML_XML_READER_ASIDE_H

#include <nolk/core/CountingPointer.h>
#include <nolk/core/XmlNamespace.h>
#include <nolk/core/XmlReaderImp.h>
#include <nolk/core/xml/XmlReaderPrefixIndex.h>

#include <forward_list>
#include <memory>

namespace nolk {

/**
 * The state of a reader that few documents need: kept apart, so that a reader is small enough for
 * allocators to keep at hand, and cheap to make.
 */
struct XmlReaderImp::Aside {
    // The buffer that a transcoding replaced, until the declared encoding is confirmed; or, in a
    // child over nothing, the parent's buffer with the views that were taken over.
    Buffer savedBuffer;
    char* savedBegin = nullptr;
    char* savedLast = nullptr;
    char* savedContentStart = nullptr;
    const char* asciiTo = nullptr;  // if set, the text was ASCII when the cursor stood here

    std::forward_list<CountingPointer<XmlNamespace>> ownedNamespaces;
    std::unique_ptr<PrefixIndex> prefixIndex;  // null while walking the scopes is fast
    XmlReader parent;

    void forgetSaved() {
        savedBuffer.reset();
        savedBegin = savedLast = savedContentStart = nullptr;
    }
};

}  // namespace nolk

#endif
