/** @file
 * The texts of exceptions whose message is fixed by their class.
 */
#ifndef NOLK_CORE_FOUNDATION_FIXED_TEXT_H
#define NOLK_CORE_FOUNDATION_FIXED_TEXT_H

#include <nolk/core/LocalizedMessage.h>

#include <string>

namespace nolk {

/**
 * The text of a message without its key, filled with the arguments in their order.
 *
 * Empty if it can't be built: a failure is being reported already, and no second one may take its
 * place. Placeholders that there is no memory to fill show as they are written.
 */
template <typename... Arguments>
std::string fixedText(const MessageCatalogId& id, const Arguments&... arguments) noexcept {
    try {
        return message(id, arguments...).getMessage();
    } catch (...) {
        return std::string();
    }
}

}  // namespace nolk

#endif
