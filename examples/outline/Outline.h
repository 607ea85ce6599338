#ifndef NOLK_EXAMPLES_OUTLINE_OUTLINE_H
#define NOLK_EXAMPLES_OUTLINE_OUTLINE_H

#include <nolk/core/XmlReaderAttributeList.h>
#include <nolk/core/XmlReaderName.h>
#include <nolk/core/XmlReaderString.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/** All elements of one name under one parent. */
struct OutlineNode {
    std::string localName;
    std::string uri;
    std::uint64_t count = 0;
    std::uint64_t attributes = 0;
    std::uint64_t texts = 0;  ///< without those of white space only
    std::vector<std::unique_ptr<OutlineNode>> children;
    bool isRest = false;  ///< stands for all that found no node of its own, at any depth
};

/** What a whole document has. */
struct OutlineTotals {
    std::uint64_t elements = 0;
    std::uint64_t attributes = 0;  ///< without declarations
    std::uint64_t declarations = 0;
    std::uint64_t texts = 0;
    std::uint64_t textBytes = 0;
    std::uint64_t whiteSpaces = 0;  ///< texts of white space only, not among the others
    std::size_t depth = 0;          ///< of the deepest element; the root's is 1
};

/**
 * The shape of a document, gathered tag by tag: elements of the same name under the same parent
 * share a node. Its size is bounded whatever the document is: names beyond the bound are counted
 * together.
 */
class Outline {
public:
    void startElement(const nolk::XmlReaderName& name,
                      const nolk::XmlReaderAttributeList& attributes);
    /** False, and nothing done, if `name` isn't that of the innermost open element. */
    bool endElement(const nolk::XmlReaderName& name);
    void text(const nolk::XmlReaderString& content);

    bool hasOpenElements() const { return open_ > 0; }
    const OutlineTotals& totals() const { return totals_; }
    /** The node above the root elements. */
    const OutlineNode& top() const { return top_; }
    std::size_t nodeCount() const { return nodeCount_; }

private:
    // Owns its name: a view would end if the reader met a declaration that changes the encoding.
    struct OpenElement {
        OutlineNode* node = nullptr;
        std::string localName;
        std::string uri;
    };

    OutlineNode& innermost() { return open_ == 0 ? top_ : *stack_[open_ - 1].node; }
    OutlineNode& childFor(OutlineNode& parent, const nolk::XmlReaderName& name);
    OutlineNode& addChild(OutlineNode& parent, const nolk::XmlReaderName& name);
    void push(OutlineNode& node, const nolk::XmlReaderName& name);

    OutlineNode top_;
    std::size_t nodeCount_ = 0;
    OutlineTotals totals_;
    std::vector<OpenElement> stack_;  // entries beyond open_ keep their strings for the next use
    std::size_t open_ = 0;
};

#endif
