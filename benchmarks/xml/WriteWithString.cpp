#include "Orders.h"

namespace {

void escape(std::string& out, const std::string& text) {
    for (const char c : text) {
        switch (c) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            case '>':
                out += "&gt;";
                break;
            case '"':
                out += "&quot;";
                break;
            default:
                out += c;
        }
    }
}

void attribute(std::string& out, const char* name, const std::string& value) {
    out.append(" ").append(name).append("=\"");
    escape(out, value);
    out.append("\"");
}

void simple(std::string& out, const char* name, const std::string& text) {
    if (text.empty()) {
        out.append("<").append(name).append("/>");
        return;
    }
    out.append("<").append(name).append(">");
    escape(out, text);
    out.append("</").append(name).append(">");
}

void writeItem(std::string& out, const OrderItem& item) {
    out.append("<o:item");
    attribute(out, "line", item.line);
    attribute(out, "sku", item.sku);
    out.append(">");
    simple(out, "o:name", item.name);
    simple(out, "o:quantity", item.quantity);
    out.append("<o:price");
    attribute(out, "currency", currencyCode);
    out.append(">");
    escape(out, item.price);
    out.append("</o:price>");
    simple(out, "o:note", item.note);
    out.append("</o:item>");
}

void writeOrder(std::string& out, const Order& order) {
    out.append("<o:order");
    attribute(out, "id", order.id);
    out.append(">");
    simple(out, "o:customer", order.customer);
    simple(out, "o:placed", order.placed);
    for (const OrderItem& item : order.items) {
        writeItem(out, item);
    }
    out.append("</o:order>");
}

}  // namespace

std::string writeWithString(const std::vector<Order>& orders) {
    std::string out = "<soap:Envelope";
    attribute(out, "xmlns:soap", soapUri);
    out.append("><soap:Body><o:orders");
    attribute(out, "xmlns:o", orderUri);
    out.append(">");
    for (const Order& order : orders) {
        writeOrder(out, order);
    }
    out.append("</o:orders></soap:Body></soap:Envelope>");
    return out;
}
