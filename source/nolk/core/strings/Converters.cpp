#include <nolk/core/Converters.h>
#include <nolk/core/Exception.h>
#include <nolk/core/LocalizedMessage.h>
#include <nolk/core/MessageIds.h>

namespace nolk {

namespace {

std::string withoutSpaces(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

bool Converters::convertStringToBool(const std::string& text) {
    const std::string word = withoutSpaces(text);
    if (word == "true" || word == "1") {
        return true;
    }
    if (word == "false" || word == "0") {
        return false;
    }
    throw Exception(here(), message(NOLK_CORE_INVALID_BOOLEAN, word));
}

}  // namespace nolk
