#include "TypeTable.h"

#include <charconv>

#include "SqlTokens.h"

namespace readers::sqlite {

namespace {

constexpr std::string_view AUTOINCREMENT = "AUTOINCREMENT";

std::string nameOf(const std::string& declared) {
    return declared.empty() ? "BLOB" : declared;
}

std::string autoIncrementNameOf(const std::string& declared) {
    return declared + " AUTOINCREMENT";
}

std::string_view withoutSize(std::string_view declared) {
    return declared.substr(0, declared.find('('));
}

/// The whole part of the number that the text is, up to a comma or parenthesis; 0 for what is no length of
/// anything. Sets `whole` to false where the text is another number, or none.
std::int32_t numberAt(std::string_view text, bool& whole) {
    std::int32_t number = 0;
    text = text.substr(0, text.find_first_of(",)"));
    text.remove_prefix(text.starts_with('+') ? 1 : 0);
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isKept = result.ec == std::errc() && number >= 0;
    whole = whole && isKept && result.ptr == text.data() + text.size();
    return isKept ? number : 0;
}

}  // namespace

std::string_view affinityOf(std::string_view declared) {
    const std::string type = foldCase(declared);
    const auto holds = [&](const char* letters) { return type.find(letters) != std::string::npos; };
    if (holds("int")) {
        return "SQL_INTEGER";
    }
    if (holds("char") || holds("clob") || holds("text")) {
        return "SQL_LONGVARCHAR";
    }
    if (holds("blob") || type.empty()) {
        return "SQL_LONGVARBINARY";
    }
    if (holds("real") || holds("floa") || holds("doub")) {
        return "SQL_DOUBLE";
    }
    return "SQL_NUMERIC";
}

TypeSize sizeOf(std::string_view declared) {
    TypeSize size;
    const std::size_t opening = declared.find('(');
    if (opening != std::string_view::npos) {
        const std::string_view numbers = declared.substr(opening + 1);
        const std::size_t comma = numbers.find(',');
        size.length = numberAt(numbers, size.whole);
        size.scale = comma == std::string_view::npos ? 0 : numberAt(numbers.substr(comma + 1), size.whole);
    }
    return size;
}

ZORType* TypeTable::typeOf(const std::string& declared) {
    const std::string_view name = withoutSize(declared);
    const bool isKnown = name != AUTOINCREMENT && !getOldDataType(ZORString(name)).isEmpty();
    return findOrAdd(nameOf(declared), declared, isKnown ? name : affinityOf(declared));
}

ZORType* TypeTable::autoIncrementTypeOf(const std::string& declared) {
    return findOrAdd(autoIncrementNameOf(declared), declared, AUTOINCREMENT);
}

void TypeTable::reserve(const std::string& declared) {
    names_.insert(foldCase(nameOf(declared)));
    names_.insert(foldCase(autoIncrementNameOf(declared)));
}

ZORType* TypeTable::addValueType(const std::string& name, ZORType* base, const ValueList& list) {
    std::string unique = name;
    for (int number = 2; !names_.insert(foldCase(unique)).second; ++number) {
        unique = name + "_" + std::to_string(number);
    }
    auto type = std::make_unique<ZORDerivedType>();
    type->setName(ZORString(unique));
    type->setDataType(base->getDataType());
    type->setLength(base->getLength());
    type->setScale(base->getScale());
    for (const ValueList::Value& permitted : list.values) {
        auto value = std::make_unique<ZORTypeValue>();
        value->setName(ZORString(permitted.text));
        value->setValue(ZORString(permitted.text));
        value->setCode(permitted.code);
        type->addTypeValue(std::move(value));
    }
    ZORDerivedType* added = model_.addType(std::move(type));
    added->setBaseType(base);
    return added;
}

ZORType* TypeTable::findOrAdd(const std::string& name, const std::string& declared,
                              std::string_view dataType) {
    ZORType*& type = types_[foldCase(name)];
    if (type == nullptr) {
        auto added = std::make_unique<ZORConcreteType>();
        const TypeSize size = sizeOf(declared);
        added->setName(ZORString(name));
        added->setDataType(ZORString(dataType));
        added->setLength(size.length);
        added->setScale(size.scale);
        type = model_.addType(std::move(added));
    }
    return type;
}

}  // namespace readers::sqlite
