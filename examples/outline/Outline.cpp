#include "Outline.h"

#include "DocumentCursor.h"

#include <algorithm>
#include <string_view>

namespace {

constexpr std::size_t mostNodes = 4000;
constexpr std::size_t mostChildren = 40;

bool isWhiteSpace(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

bool isNamed(const OutlineNode& node, const nolk::XmlReaderName& name) {
    return !node.isRest && node.localName == name.localName.view() && node.uri == name.uri.view();
}

}  // namespace

void Outline::startElement(const nolk::XmlReaderName& name,
                           const nolk::XmlReaderAttributeList& attributes) {
    std::uint64_t plain = 0;
    for (const nolk::XmlReaderAttribute& attribute : attributes) {
        plain += isDeclaration(attribute.name) ? 0 : 1;
    }
    OutlineNode& node = childFor(innermost(), name);
    ++node.count;
    node.attributes += plain;
    ++totals_.elements;
    totals_.attributes += plain;
    totals_.declarations += attributes.length() - plain;
    push(node, name);
}

bool Outline::endElement(const nolk::XmlReaderName& name) {
    if (open_ == 0 || stack_[open_ - 1].localName != name.localName.view() ||
        stack_[open_ - 1].uri != name.uri.view()) {
        return false;
    }
    --open_;
    return true;
}

void Outline::text(const nolk::XmlReaderString& content) {
    if (isWhiteSpace(content.view())) {
        ++totals_.whiteSpaces;
        return;
    }
    ++innermost().texts;
    ++totals_.texts;
    totals_.textBytes += content.length;
}

OutlineNode& Outline::childFor(OutlineNode& parent, const nolk::XmlReaderName& name) {
    if (parent.isRest) {
        return parent;
    }
    // From the last on: documents repeat the element that they have just introduced.
    for (auto child = parent.children.rbegin(); child != parent.children.rend(); ++child) {
        if (isNamed(**child, name)) {
            return **child;
        }
    }
    return addChild(parent, name);
}

OutlineNode& Outline::addChild(OutlineNode& parent, const nolk::XmlReaderName& name) {
    if (!parent.children.empty() && parent.children.back()->isRest) {
        return *parent.children.back();
    }
    auto child = std::make_unique<OutlineNode>();
    child->isRest = nodeCount_ >= mostNodes || parent.children.size() >= mostChildren;
    if (!child->isRest) {
        child->localName = name.localName.view();
        child->uri = name.uri.view();
    }
    parent.children.push_back(std::move(child));
    ++nodeCount_;
    return *parent.children.back();
}

void Outline::push(OutlineNode& node, const nolk::XmlReaderName& name) {
    if (open_ == stack_.size()) {
        stack_.emplace_back();
    }
    OpenElement& element = stack_[open_++];
    element.node = &node;
    element.localName = name.localName.view();
    element.uri = name.uri.view();
    totals_.depth = std::max(totals_.depth, open_);
}
