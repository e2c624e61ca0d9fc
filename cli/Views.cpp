#include "Views.h"

#include <fmt/format.h>

#include <algorithm>

#include "Failure.h"
#include "Text.h"

namespace cli {

namespace {

template <typename Predicate>
const View* findView(Predicate predicate) {
    const auto found = std::find_if(VIEWS.begin(), VIEWS.end(), predicate);
    return found == VIEWS.end() ? nullptr : &*found;
}

std::string availableChoices() {
    std::vector<std::string> choices;
    for (const View& view : VIEWS) {
        if (view.available) {
            choices.push_back(fmt::format("--view {}", view.name));
        }
    }
    return joinWords(choices, "or");
}

}  // namespace

const View* findViewByName(std::string_view name) {
    return findView([&](const View& view) { return view.name == name; });
}

const View* findViewByBridgeValue(std::string_view value) {
    return findView([&](const View& view) { return view.bridgeValue == value; });
}

void requireAvailable(const View& view, const std::string& reason) {
    if (view.available) {
        return;
    }
    throw Failure(ExitCode::WRONG_USE, reason,
                  fmt::format("the {} cannot be written by this version of the program", view.title),
                  fmt::format("pass {}", availableChoices()));
}

std::vector<std::string> viewNames() {
    std::vector<std::string> names;
    for (const View& view : VIEWS) {
        names.emplace_back(view.name);
    }
    return names;
}

}  // namespace cli
