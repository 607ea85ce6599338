#include "Readers.h"

#include <rapidxml.hpp>

#include <cstring>
#include <vector>

namespace {

using Node = rapidxml::xml_node<>;

void addElement(Tally& tally, const Node& element) {
    ++tally.elements;
    tally.nameBytes += element.name_size();
    for (auto* attribute = element.first_attribute(); attribute != nullptr;
         attribute = attribute->next_attribute()) {
        ++tally.attributes;
        tally.nameBytes += attribute->name_size();
        tally.valueBytes += attribute->value_size();
    }
}

void addChildren(Tally& tally, const Node& parent) {
    for (const Node* node = parent.first_node(); node != nullptr; node = node->next_sibling()) {
        switch (node->type()) {
            case rapidxml::node_element:
                addElement(tally, *node);
                addChildren(tally, *node);
                break;
            case rapidxml::node_data:
            case rapidxml::node_cdata:
                tally.textBytes += node->value_size();
                break;
            default:
                break;
        }
    }
}

// It parses in place, so each pass needs the text anew: one buffer, filled inside the timed loop.
char* mutableCopy(const std::string& document) {
    static std::vector<char> buffer;
    if (buffer.size() < document.size() + 1) {
        buffer.resize(document.size() + 1);
    }
    std::memcpy(buffer.data(), document.c_str(), document.size() + 1);
    return buffer.data();
}

template <int flags>
Tally read(const std::string& document) {
    Tally tally;
    rapidxml::xml_document<> tree;
    try {
        tree.parse<flags>(mutableCopy(document));
    } catch (const rapidxml::parse_error& error) {
        readFailed("RapidXML", error.what());
    }
    addChildren(tally, tree);
    return tally;
}

}  // namespace

Tally readWithRapidXml(const std::string& document) {
    return read<rapidxml::parse_default>(document);
}

Tally readWithRapidXmlFast(const std::string& document) {
    return read<rapidxml::parse_no_string_terminators | rapidxml::parse_no_element_values>(
        document);
}
