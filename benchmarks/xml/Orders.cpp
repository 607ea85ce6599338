#include "Orders.h"

#include <array>
#include <random>

namespace {

constexpr std::array<const char*, 8> goods = {
    "Ball bearing 608-2RS",        "Bolts & nuts, assorted",     "Cable tie 200 mm",
    "Drill bit, HSS <6 mm>",       "Extension cord 5 m",         "Felt pad, self-adhesive",
    "Garden hose \"Comfort\" 3/4", "Hex key set, ball-ended tip"};
constexpr std::array<const char*, 4> notes = {
    "", "urgent", "Please deliver to the back entrance between 8 and 10 am.",
    "Ship only if quantity > 10 & in stock; otherwise cancel this line."};

class Generator {
public:
    explicit Generator(unsigned seed) : random_(seed) {}

    // Not a standard distribution: those differ from one standard library to the next.
    unsigned below(unsigned bound) { return static_cast<unsigned>(random_() % bound); }

    OrderItem item(unsigned line) {
        return {std::to_string(line),
                "SKU-" + std::to_string(100000 + below(900000)),
                goods[below(goods.size())],
                std::to_string(1 + below(99)),
                std::to_string(below(1000)) + "." + std::to_string(10 + below(90)),
                notes[below(notes.size())]};
    }

    Order order(unsigned number) {
        Order order{"PO-" + std::to_string(70000 + number),
                    "Customer " + std::to_string(below(5000)) + " & Sons",
                    "2004-0" + std::to_string(1 + below(9)) + "-1" + std::to_string(below(9)) +
                        "T09:30:47Z",
                    {}};
        const unsigned count = 2 + below(8);
        for (unsigned line = 1; line <= count; ++line) {
            order.items.push_back(item(line));
        }
        return order;
    }

private:
    std::mt19937 random_;
};

}  // namespace

std::vector<Order> makeOrders(int count) {
    Generator generator(20040611);
    std::vector<Order> orders;
    for (int i = 0; i < count; ++i) {
        orders.push_back(generator.order(static_cast<unsigned>(i)));
    }
    return orders;
}
