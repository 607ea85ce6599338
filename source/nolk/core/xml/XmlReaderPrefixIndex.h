#ifndef NOLK_CORE_XML_XML_READER_PREFIX_INDEX_H
#define NOLK_CORE_XML_XML_READER_PREFIX_INDEX_H

#include <nolk/core/XmlReaderImp.h>

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace nolk {

/**
 * The bindings of very many prefixes, or of very deep scopes, by prefix: looking one up doesn't
 * walk the scopes. A reader makes one when walking would take its time, which no document that
 * people write lets it do, and drops it when scopes change other than by tags.
 */
class XmlReaderImp::PrefixIndex {
public:
    /** From here on walking takes longer than a look-up. */
    static constexpr std::uint32_t fewScopes = 32;
    static constexpr std::uint32_t fewBindings = 64;

    static bool isWorthIt(const XmlReaderNamespaceStack& stack) {
        std::uint32_t bindings = 0;
        for (std::uint32_t i = 0; i < stack.depth() && i <= fewScopes; ++i) {
            bindings += stack.scope(i).length();
        }
        return stack.depth() > fewScopes || bindings > fewBindings;
    }

    explicit PrefixIndex(const XmlReaderNamespaceStack& stack) {
        for (std::uint32_t i = 0; i < stack.depth(); ++i) {
            for (const XmlReaderNamespace& binding : stack.scope(i)) {
                bind(i, binding);
            }
        }
    }

    XmlReaderString find(const XmlReaderString& prefix) const {
        const auto found = uris_.find(prefix.view());
        return found == uris_.end() || found->second.empty() ? XmlReaderString()
                                                             : found->second.back().second;
    }

    /** Takes in a binding of the innermost scope; of two of one prefix there the first stands. */
    void bind(std::uint32_t scope, const XmlReaderNamespace& binding) {
        Uris& uris = uris_.try_emplace(std::string(binding.prefix.view())).first->second;
        if (uris.empty() || uris.back().first != scope) {
            uris.emplace_back(scope, binding.uri);
        }
    }

    /** Takes out the bindings of the innermost scope, which closes. */
    void unbind(std::uint32_t scope, const XmlReaderNamespaceList& bindings) {
        for (const XmlReaderNamespace& binding : bindings) {
            const auto found = uris_.find(binding.prefix.view());
            if (found != uris_.end() && !found->second.empty() &&
                found->second.back().first == scope) {
                found->second.pop_back();
            }
        }
    }

private:
    using Uris = std::vector<std::pair<std::uint32_t, XmlReaderString>>;  // innermost last

    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    // Own keys: those of closed scopes may lie where a child reader moves text.
    std::unordered_map<std::string, Uris, Hash, std::equal_to<>> uris_;
};

}  // namespace nolk

#endif
