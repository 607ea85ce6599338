#include <nolk/core/DecimalParser.h>

#include <cstring>

namespace nolk {

DecimalParser::DecimalParser() = default;

Decimal DecimalParser::operator()(const char* text) {
    text_ = text;
    length_ = text == nullptr ? 0 : std::strlen(text);
    position_ = 0;
    if (length_ == 0) {
        return Decimal::null;
    }
    parse();
    return value();
}

int DecimalParser::getc() const {
    return position_ < length_ ? static_cast<unsigned char>(text_[position_]) : end();
}

int DecimalParser::nextc() {
    position_ += position_ < length_;
    return getc();
}

void DecimalParser::restart() {
    position_ = 0;
    clear();
}

}  // namespace nolk
