#ifndef NOLK_BENCHMARKS_XML_ORDERS_H
#define NOLK_BENCHMARKS_XML_ORDERS_H

#include <string>
#include <vector>

/** One line of an order, as text: what the benchmarks of the writer measure is writing. */
struct OrderItem {
    std::string line;
    std::string sku;
    std::string name;
    std::string quantity;
    std::string price;
    std::string note;
};

struct Order {
    std::string id;
    std::string customer;
    std::string placed;
    std::vector<OrderItem> items;
};

/** The same orders for the same count, on every machine. */
std::vector<Order> makeOrders(int count);

inline const char* const soapUri = "http://schemas.xmlsoap.org/soap/envelope/";
inline const char* const orderUri = "http://shop.example/orders/2";
inline const char* const currencyCode = "EUR";

/** @name The orders as the body of one SOAP message @{ */
std::string writeWithNolk(const std::vector<Order>& orders);
std::string writeWithLibXml2(const std::vector<Order>& orders);
/** By hand, escaped byte by byte: a writer can hardly do less. */
std::string writeWithString(const std::vector<Order>& orders);
/** @} */

#endif
