#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace cli {

/// A view of a model that a document can show.
struct View {
    std::string_view name;         ///< on the command line and of readers' natural views
    std::string_view bridgeValue;  ///< the value of the bridge's option "Model"
    std::string_view title;
    bool hasErd;  ///< it shows data types in the set of the option "ERD TypeSet"
    bool hasDbm;  ///< likewise of "DBM TypeSet"
};

inline constexpr std::array VIEWS = {
    View{"uml", "UML", "UML view", false, false},
    View{"erd", "ERD", "ERD view", true, false},
    View{"dbm", "DBM", "DBM view", false, true},
    View{"erd+dbm", "ERD and DBM", "ERD and DBM views", true, true},
};

/// The view of this name or, in the second case, of this value of the bridge's option; null when there is
/// none.
const View* findViewByName(std::string_view name);
const View* findViewByBridgeValue(std::string_view value);

std::vector<std::string> viewNames();

}  // namespace cli
