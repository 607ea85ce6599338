// Two texts, read as spans: what is written is read again, sums are those of the calendar, and the
// order is one.
#include "FuzzInput.h"

#include <nolk/core/TimeSpan.h>

#include <cmath>
#include <string>

namespace {

using nolk::DateTime;
using nolk::TimeSpan;
using nolk::TimeZone;

void checkText(const TimeSpan& span) {
    const std::string text = span.asString();
    require(text.empty() == !span.isValid(), "an invalid span has no text");
    if (!span.isValid() || !std::isfinite(span.getSeconds())) {
        return;
    }
    TimeSpan back(text);
    // A time of less than half a microsecond is written as 0, which can't be read.
    if (!back.isValid()) {
        require(span.getHours() + span.getMinutes() == 0 && span.getSeconds() < 0.0000006,
                "the text is read again");
        return;
    }
    require(back.isNegative() == span.isNegative() && back.getYears() == span.getYears() &&
                back.getMonths() == span.getMonths() && back.getDays() == span.getDays(),
            "the date is the same");
    const bool hasTime = text.find('T') != std::string::npos;
    require(
        !hasTime || (back.getHours() == span.getHours() && back.getMinutes() == span.getMinutes() &&
                     std::abs(back.getSeconds() - span.getSeconds()) <= 0.0000006),
        "the time is the same to six decimals");
    require(back.asString() == text, "and so is the text");
}

// The years of the sum are those of its months, and no field of it is out of its range.
void checkSum(const TimeSpan& span, const DateTime& start) {
    const DateTime sum = span + start;
    if (sum.isSentinel()) {
        return;
    }
    TimeSpan months(span.getYears(), span.getMonths());
    if (span.isNegative()) {
        -months;
    }
    // Days and times move on from where years and months lead to.
    const DateTime base = months + start;
    TimeSpan rest(0, 0, span.getDays(), span.getHours(), span.getMinutes(), span.getSeconds());
    if (span.isNegative()) {
        -rest;
    }
    // Far off, counts wrap.
    const bool near = !base.isSentinel() && base.yearGMT() < 100000000 && span.getSeconds() < 1e15;
    require(!near || rest + base == sum, "the sum is made in two steps");
}

void checkOrder(const TimeSpan& a, const TimeSpan& b) {
    require(!(a < a) && !(b < b), "nothing is before itself");
    require(!(a < b && b < a), "the order has one direction");
    require(a.compareTo(b) == -b.compareTo(a), "so has the length");
    require(a.isEqual(b) == (a.compareTo(b) == 0), "equal lengths are equal");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const std::string text = input.rest();
    const std::string::size_type newline = text.find('\n');
    const TimeSpan a(text.substr(0, newline));
    const TimeSpan b(newline == std::string::npos ? std::string() : text.substr(newline + 1));
    for (const TimeSpan* span : {&a, &b}) {
        checkText(*span);
        checkSum(*span, DateTime(29, 2, 2000, 23, 59, 59, 999, TimeZone::utc()));
        checkSum(*span, DateTime(1, 1, 1901, 0, 0, 0, 0, TimeZone::utc()));
    }
    checkOrder(a, b);
    return 0;
}
