#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace readers::sqlite {

/// What to do about a script that SQLite does not understand at this position: a sentence that names the
/// database for which the script seems to be written; empty when it does not look like another database's.
std::string adviseOnDialect(std::string_view script, std::size_t position);

}  // namespace readers::sqlite
