#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "ValueList.h"
#include "ZOR.h"

namespace readers::sqlite {

/// The types of a model that is being built: one object for all equal declarations, letter case ignored.
///
/// A type is named as declared. Its data-type name is the declared one without the size if that is a known
/// name of a type; SQLite allows any text there, or none, and then looks for certain letters in it, which
/// decides here as well. The type of AUTOINCREMENT columns is one of its own, with the data-type name
/// "AUTOINCREMENT".
class TypeTable {
  public:
    explicit TypeTable(ZORModel& model) noexcept : model_(model) {}

    /// `declared` is normalised, and empty for a column without a declared type.
    ZORType* typeOf(const std::string& declared);
    ZORType* autoIncrementTypeOf(const std::string& declared);
    /// Takes the name for a type that a declaration makes, whether that declaration comes first or not.
    void reserve(const std::string& declared);
    /// A new type that is like `base` in all that a database sees of it, and permits only these values. It is
    /// called `name`, with a number behind it where a declared type or another one like it is called so.
    ZORType* addValueType(const std::string& name, ZORType* base, const ValueList& list);

  private:
    ZORType* findOrAdd(const std::string& name, const std::string& declared, std::string_view dataType);

    ZORModel& model_;
    std::unordered_map<std::string, ZORType*> types_;  ///< declared ones, by name in small letters
    std::unordered_set<std::string> names_;            ///< of all types, in small letters
};

/// The old-style key for the affinity that SQLite gives a declared type.
std::string_view affinityOf(std::string_view declared);

/// "DECIMAL(10,2)" has the length 10 and the scale 2; numbers that are missing, negative or too large are 0.
struct TypeSize {
    std::int32_t length = 0;
    std::int32_t scale = 0;
    bool whole = true;  ///< false when the declaration says more of them than these numbers do
};
TypeSize sizeOf(std::string_view declared);

}  // namespace readers::sqlite
