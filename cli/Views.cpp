#include "Views.h"

#include <algorithm>

namespace cli {

namespace {

template <typename Predicate>
const View* findView(Predicate predicate) {
    const auto found = std::find_if(VIEWS.begin(), VIEWS.end(), predicate);
    return found == VIEWS.end() ? nullptr : &*found;
}

}  // namespace

const View* findViewByName(std::string_view name) {
    return findView([&](const View& view) { return view.name == name; });
}

const View* findViewByBridgeValue(std::string_view value) {
    return findView([&](const View& view) { return view.bridgeValue == value; });
}

std::vector<std::string> viewNames() {
    std::vector<std::string> names;
    names.reserve(VIEWS.size());
    for (const View& view : VIEWS) {
        names.emplace_back(view.name);
    }
    return names;
}

}  // namespace cli
