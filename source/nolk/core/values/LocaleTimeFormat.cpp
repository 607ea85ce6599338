#include <nolk/core/LocaleTimeFormat.h>

namespace nolk {

LocaleTimeFormat::~LocaleTimeFormat() {
    while (components != nullptr) {
        QXTimeFmtList* const next = components->next;
        delete components;
        components = next;
    }
}

}  // namespace nolk
