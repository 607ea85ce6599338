#include "Readers.h"

#include <pugixml.hpp>

#include <cstring>

namespace {

void addElement(Tally& tally, const pugi::xml_node& element) {
    ++tally.elements;
    tally.nameBytes += std::strlen(element.name());
    for (const pugi::xml_attribute& attribute : element.attributes()) {
        ++tally.attributes;
        tally.nameBytes += std::strlen(attribute.name());
        tally.valueBytes += std::strlen(attribute.value());
    }
}

void addChildren(Tally& tally, const pugi::xml_node& parent) {
    for (const pugi::xml_node& node : parent.children()) {
        switch (node.type()) {
            case pugi::node_element:
                addElement(tally, node);
                addChildren(tally, node);
                break;
            case pugi::node_pcdata:
            case pugi::node_cdata:
                tally.textBytes += std::strlen(node.value());
                break;
            default:
                break;
        }
    }
}

}  // namespace

Tally readWithPugixml(const std::string& document) {
    Tally tally;
    pugi::xml_document tree;
    const auto result = tree.load_buffer(document.data(), document.size());
    if (!result) {
        readFailed("pugixml", result.description());
    }
    addChildren(tally, tree);
    return tally;
}
