#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace readers::sqlite {

/// What the statements that SQLite keeps of other objects than tables say beyond what SQLite itself tells.
/// The functions read statements that SQLite accepted; no text makes them fail.

struct IndexDefinition {
    std::vector<std::string> members;  ///< as written, collation and order included
    std::string condition;             ///< of a partial index
};
IndexDefinition parseIndexDefinition(std::string_view sql);

/// The SELECT of a CREATE VIEW statement, as written.
std::string parseViewSelect(std::string_view sql);

/// Whether a SELECT is made of several ones by UNION, EXCEPT or INTERSECT at its top.
bool isCompoundSelect(std::string_view select);

struct TriggerDefinition {
    enum class Timing { BEFORE, AFTER, INSTEAD_OF };
    enum class Event { DELETE, INSERT, UPDATE };

    Timing timing = Timing::BEFORE;
    Event event = Event::DELETE;
    std::string columns;  ///< of UPDATE OF, as written
    std::string action;   ///< WHEN with its condition, and everything from BEGIN to END, as written
};
TriggerDefinition parseTriggerDefinition(std::string_view sql);

struct VirtualTableDefinition {
    std::string module;
    std::string arguments;  ///< as written, without the parentheses
};
VirtualTableDefinition parseVirtualTableDefinition(std::string_view sql);

/// A column's declared type without comments and needless blanks: "DECIMAL(10,2)".
std::string normalizeType(std::string_view declared);

}  // namespace readers::sqlite
