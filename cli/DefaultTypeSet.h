#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace cli {

/// The type set of DBM exports where neither the user nor the source's database tells.
inline constexpr std::string_view FALLBACK_DBM_TYPE_SET = "SQL Server 7.x";
inline constexpr std::string_view DEFAULT_ERD_TYPE_SET = "XML Datatypes";

/// The convention among `typeSets` that fits a database type: the one of that name; else, of those of the
/// same product, the one whose version fits, or the newest (they stand in the order of their versions); else
/// empty. A product is recognised with its maker's name in front ("Microsoft SQL Server 2000"), or an edition
/// behind ("Oracle Database 19c").
std::string findTypeSet(std::string_view databaseType, const std::vector<std::string>& typeSets);

}  // namespace cli
