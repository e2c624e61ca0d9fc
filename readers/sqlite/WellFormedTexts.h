#pragma once

#include <cstdint>
#include <string>

#include "ZOR.h"

namespace readers::sqlite {

/// What was done about texts that are not UTF-8.
struct MendedTexts {
    std::uint64_t count = 0;
    std::string first;  ///< the object with the first of them, such as "main.customer.name"

    /// What has become of that text and the others; nothing when there was none.
    std::string describe() const;
};

/// Puts U+FFFD in the place of everything that is not UTF-8 in the texts of a model that was made of a
/// database. SQLite takes any bytes for a name, and until here names are compared by their bytes: objects
/// whose names are equal only now stay apart. The names of the model and its catalog do not come from the
/// database.
MendedTexts makeTextsWellFormed(ZORModel& model);

}  // namespace readers::sqlite
