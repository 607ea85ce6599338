#include "Orders.h"

#include <nolk/core/XmlStringWriter.h>

using nolk::XmlAttributeSet;
using nolk::XmlName;
using nolk::XmlNamespace;
using nolk::XmlStringWriter;

namespace {

// As generated code has them: made once.
struct Names {
    XmlNamespace soap{"soap", soapUri};
    XmlNamespace orders{"o", orderUri};
    XmlName envelope{"Envelope", soap};
    XmlName body{"Body", soap};
    XmlName root{"orders", orders};
    XmlName order{"order", orders};
    XmlName customer{"customer", orders};
    XmlName placed{"placed", orders};
    XmlName item{"item", orders};
    XmlName name{"name", orders};
    XmlName quantity{"quantity", orders};
    XmlName price{"price", orders};
    XmlName note{"note", orders};
    XmlName id{"id"};
    XmlName line{"line"};
    XmlName sku{"sku"};
    XmlName currency{"currency"};
    XmlName noType;
};

const Names names;

void simple(XmlStringWriter& writer, const XmlName& name, const std::string& text) {
    writer.writeSimpleElement(name, text, names.noType, false);
}

void writeItem(XmlStringWriter& writer, const OrderItem& item) {
    XmlAttributeSet attributes;
    attributes.add(names.line, item.line);
    attributes.add(names.sku, item.sku);
    writer.writeElementStart(names.item, attributes);
    simple(writer, names.name, item.name);
    simple(writer, names.quantity, item.quantity);
    XmlAttributeSet currency;
    currency.add(names.currency, currencyCode);
    writer.writeSimpleElement(names.price, item.price, names.noType, false, currency);
    simple(writer, names.note, item.note);
    writer.writeElementEnd(names.item);
}

void writeOrder(XmlStringWriter& writer, const Order& order) {
    XmlAttributeSet attributes;
    attributes.add(names.id, order.id);
    writer.writeElementStart(names.order, attributes);
    simple(writer, names.customer, order.customer);
    simple(writer, names.placed, order.placed);
    for (const OrderItem& item : order.items) {
        writeItem(writer, item);
    }
    writer.writeElementEnd(names.order);
}

}  // namespace

std::string writeWithNolk(const std::vector<Order>& orders) {
    XmlStringWriter writer;
    writer.writeElementStart(names.envelope);
    writer.writeElementStart(names.body);
    writer.writeElementStart(names.root);
    for (const Order& order : orders) {
        writeOrder(writer, order);
    }
    writer.writeElementEnd(names.root);
    writer.writeElementEnd(names.body);
    writer.writeElementEnd(names.envelope);
    return writer.getString();
}
