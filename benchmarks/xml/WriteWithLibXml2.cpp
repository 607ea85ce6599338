#include "Orders.h"

#include <libxml/xmlwriter.h>

#include <memory>

namespace {

const xmlChar* bytes(const char* text) {
    return reinterpret_cast<const xmlChar*>(text);
}

// Qualified names and declarations by hand: its calls with namespaces do more and are slower.
void start(xmlTextWriterPtr writer, const char* name) {
    xmlTextWriterStartElement(writer, bytes(name));
}

void attribute(xmlTextWriterPtr writer, const char* name, const char* value) {
    xmlTextWriterWriteAttribute(writer, bytes(name), bytes(value));
}

void attribute(xmlTextWriterPtr writer, const char* name, const std::string& value) {
    attribute(writer, name, value.c_str());
}

void simple(xmlTextWriterPtr writer, const char* name, const std::string& text) {
    start(writer, name);
    if (!text.empty()) {
        xmlTextWriterWriteString(writer, bytes(text.c_str()));
    }
    xmlTextWriterEndElement(writer);
}

void writeItem(xmlTextWriterPtr writer, const OrderItem& item) {
    start(writer, "o:item");
    attribute(writer, "line", item.line);
    attribute(writer, "sku", item.sku);
    simple(writer, "o:name", item.name);
    simple(writer, "o:quantity", item.quantity);
    start(writer, "o:price");
    attribute(writer, "currency", currencyCode);
    xmlTextWriterWriteString(writer, bytes(item.price.c_str()));
    xmlTextWriterEndElement(writer);
    simple(writer, "o:note", item.note);
    xmlTextWriterEndElement(writer);
}

void writeOrder(xmlTextWriterPtr writer, const Order& order) {
    start(writer, "o:order");
    attribute(writer, "id", order.id);
    simple(writer, "o:customer", order.customer);
    simple(writer, "o:placed", order.placed);
    for (const OrderItem& item : order.items) {
        writeItem(writer, item);
    }
    xmlTextWriterEndElement(writer);
}

void writeEnvelope(xmlTextWriterPtr writer, const std::vector<Order>& orders) {
    start(writer, "soap:Envelope");
    attribute(writer, "xmlns:soap", soapUri);
    start(writer, "soap:Body");
    start(writer, "o:orders");
    attribute(writer, "xmlns:o", orderUri);
    for (const Order& order : orders) {
        writeOrder(writer, order);
    }
    xmlTextWriterEndElement(writer);
    xmlTextWriterEndElement(writer);
    xmlTextWriterEndElement(writer);
}

}  // namespace

std::string writeWithLibXml2(const std::vector<Order>& orders) {
    const std::unique_ptr<xmlBuffer, decltype(&xmlBufferFree)> buffer(xmlBufferCreate(),
                                                                      xmlBufferFree);
    const std::unique_ptr<xmlTextWriter, decltype(&xmlFreeTextWriter)> writer(
        xmlNewTextWriterMemory(buffer.get(), 0), xmlFreeTextWriter);
    writeEnvelope(writer.get(), orders);
    xmlTextWriterFlush(writer.get());
    return std::string(reinterpret_cast<const char*>(xmlBufferContent(buffer.get())),
                       static_cast<std::size_t>(xmlBufferLength(buffer.get())));
}
