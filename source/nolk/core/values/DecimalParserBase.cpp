#include <nolk/core/DecimalParserBase.h>

#include <iterator>

namespace nolk {

namespace {

constexpr bool isDigit(int c) {
    return c >= '0' && c <= '9';
}

constexpr bool isSpace(int c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

constexpr int byteOf(char c) {
    return static_cast<unsigned char>(c);
}

}  // namespace

DecimalParserBase::DecimalParserBase()
    : currency_("$"),
      thousandsSeparator_(Decimal::thousandsSeparator()),
      decimalSeparator_(Decimal::decimalSeparator()) {}

DecimalParserBase::~DecimalParserBase() = default;

bool DecimalParserBase::parse() {
    clear();
    const bool good = parseForm();
    if (!good || !value_.isNumber()) {
        value_.setState(good ? value_.state() : DecimalBase::NaN);
    } else {
        value_.negative_ = value_.negative_ && !value_.isZero();
    }
    return good;
}

void DecimalParserBase::clear() {
    value_ = Decimal();
    ahead_.clear();
}

// What stands behind the form, doesn't matter.
bool DecimalParserBase::parseForm() {
    skipSpace();
    if (takeFirstOf(currency_)) {
        skipSpace();
    }
    if (take('(')) {
        return parseParentheses();
    }
    if (!consume_frac()) {
        return false;
    }
    if (peek() == '%') {
        consume_percent();
    }
    takeFirstOf(trailing_);
    return true;
}

bool DecimalParserBase::parseParentheses() {
    value_.negative_ = true;
    skipSpace();
    if (atEnd()) {
        return false;
    }
    const int c = peek();
    const bool name = c == 'm' || c == 'n' || c == 'N';
    if (!(name ? consume_nonum() : consume_frac())) {
        return false;
    }
    skipSpace();
    if (!take(')')) {
        return false;
    }
    takeFirstOf(trailing_);
    return true;
}

bool DecimalParserBase::consume_frac() {
    skipSpace();
    if (atEnd()) {
        return false;
    }
    const bool minus = take('-');
    if (minus || take('+')) {
        value_.negative_ = value_.negative_ || minus;
        skipSpace();
        if (atEnd()) {
            return false;
        }
    }
    takeDigitsInto(value_.integer_);
    if (takeWhole(decimalSeparator_)) {
        takeDigitsInto(value_.fraction_);
    }
    if (value_.integer_.empty()) {
        if (value_.fraction_.empty()) {
            value_.state_ = DecimalBase::NaN;
        } else {
            value_.integer_ = "0";
        }
    }
    return true;
}

// Divides by 100. The sign itself stays where it is.
void DecimalParserBase::consume_percent() {
    if (value_.isNumber()) {
        value_.integer_.insert(0, "00");
        const std::size_t point = value_.integer_.size() - 2;
        value_.fraction_.insert(0, value_.integer_, point);
        value_.integer_.resize(point);
    }
}

// The first letter may be any; the second tells the name.
bool DecimalParserBase::consume_nonum() {
    skip();
    switch (peek()) {
        case 'a':
            return takeName("aN", DecimalBase::NaN);
        case 'i':
            return takeName("issing", DecimalBase::missing);
        case 'u':
            return takeName("ull", DecimalBase::null);
        default:
            return false;
    }
}

// Something must stand behind the name.
bool DecimalParserBase::takeName(const char* letters, DecimalBase::State state) {
    for (; *letters != '\0'; ++letters) {
        if (!take(*letters)) {
            return false;
        }
    }
    value_.setState(state);
    return !atEnd();
}

int DecimalParserBase::peek() const {
    return ahead_.empty() ? getc() : byteOf(ahead_.front());
}

// The character so many places on.
int DecimalParserBase::look(std::size_t place) {
    while (ahead_.size() <= place) {
        const int c = getc();
        if (c == end_) {
            return end_;
        }
        ahead_ += static_cast<char>(c);
        nextc();
    }
    return byteOf(ahead_[place]);
}

void DecimalParserBase::skip() {
    if (ahead_.empty()) {
        nextc();
    } else {
        ahead_.erase(0, 1);
    }
}

void DecimalParserBase::skipSpace() {
    while (!atEnd() && isSpace(peek())) {
        skip();
    }
}

bool DecimalParserBase::take(char wanted) {
    if (atEnd() || peek() != byteOf(wanted)) {
        return false;
    }
    skip();
    return true;
}

bool DecimalParserBase::takeFirstOf(const std::string& text) {
    return !text.empty() && take(text.front());
}

// Separators of several bytes share their first ones with other characters, and with each other.
bool DecimalParserBase::takeWhole(const std::string& text) {
    if (text.size() <= 1) {
        return takeFirstOf(text);
    }
    if (peek() != byteOf(text.front())) {
        return false;
    }
    for (std::size_t place = 1; place < text.size(); ++place) {
        if (look(place) != byteOf(text[place])) {
            return false;
        }
    }
    ahead_.erase(0, text.size());
    return true;
}

// Some digits, as they come in one go.
bool DecimalParserBase::takeDigitRun() {
    if (!isDigit(peek())) {
        return false;
    }
    if (!ahead_.empty()) {
        digits_->push_back(ahead_.front());
        skip();
        return true;
    }
    char run[64];
    std::size_t length = 0;
    for (int c = getc(); isDigit(c) && length < std::size(run); c = nextc()) {
        run[length++] = static_cast<char>(c);
    }
    digits_->append(run, length);
    return true;
}

void DecimalParserBase::takeDigitsInto(std::string& digits) {
    digits_ = &digits;
    while (takeDigitRun() || takeWhole(thousandsSeparator_)) {
    }
    digits_ = nullptr;
}

}  // namespace nolk
