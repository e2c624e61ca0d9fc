#include "Names.h"

namespace readers::xmi {

NameTable::NameTable() {
    for (const std::string_view text : KNOWN_NAMES) {
        intern(text);
    }
}

Name NameTable::intern(std::string_view text) {
    if (const auto found = names_.find(text); found != names_.end()) {
        return found->second;
    }
    const auto name = static_cast<Name>(texts_.size());
    names_.emplace(texts_.emplace_back(text), name);
    return name;
}

}  // namespace readers::xmi
