#pragma once

#include <utility>

#include "Vocabulary.h"

/// How rows of the tables are written: `text<&ZORType::setDataType, &ZORType::getDataType>("dataType",
/// "...")` is a field whose text goes to the one operation of the object and comes from the other.
namespace readers::document {

template <typename Operation>
struct OperationTraits;
template <typename Class, typename Result, typename Value>
struct OperationTraits<Result (Class::*)(Value)> {
    using Owner = Class;
    using Argument = Value;
};
template <typename Class, typename Result, typename Value>
struct OperationTraits<Result (Class::*)(Value) noexcept> {
    using Owner = Class;
    using Argument = Value;
};
template <typename Class, typename Result>
struct OperationTraits<Result (Class::*)() const> {
    using Owner = Class;
};
template <typename Class, typename Result>
struct OperationTraits<Result (Class::*)() const noexcept> {
    using Owner = Class;
};

template <auto Operation>
using OwnerOf = typename OperationTraits<decltype(Operation)>::Owner;
template <auto Operation>
using ArgumentOf = typename OperationTraits<decltype(Operation)>::Argument;

/// What an operation without arguments gives back for the object.
template <auto Get>
decltype(auto) valueOf(const ZORModelObject& object) {
    return (static_cast<const OwnerOf<Get>&>(object).*Get)();
}

inline Field field(std::string_view key, Shape shape, std::string_view description) {
    Field row;
    row.key = key;
    row.shape = shape;
    row.description = description;
    return row;
}

template <auto Set, auto Get>
Field text(std::string_view key, std::string_view description) {
    Field row = field(key, Shape::TEXT, description);
    row.setText = [](ZORModelObject& object, std::string_view value) {
        (static_cast<OwnerOf<Set>&>(object).*Set)(ZORString(value));
    };
    row.getText = [](const ZORModelObject& object, std::size_t) -> const ZORString& {
        return valueOf<Get>(object);
    };
    return row;
}

template <auto Set>
void setNumber(ZORModelObject& object, std::int32_t number) {
    (static_cast<OwnerOf<Set>&>(object).*Set)(static_cast<ArgumentOf<Set>>(number));
}

template <auto Get>
std::int32_t getNumber(const ZORModelObject& object) {
    return static_cast<std::int32_t>(valueOf<Get>(object));
}

template <auto Set, auto Get>
Field integer(std::string_view key, std::int32_t lowest, std::int32_t highest, std::string_view description) {
    Field row = field(key, Shape::INTEGER, description);
    row.lowest = lowest;
    row.highest = highest;
    row.setNumber = setNumber<Set>;
    row.getNumber = getNumber<Get>;
    return row;
}

template <auto Set, auto Get>
Field boolean(std::string_view key, std::string_view description) {
    Field row = field(key, Shape::BOOLEAN, description);
    row.setNumber = setNumber<Set>;
    row.getNumber = getNumber<Get>;
    return row;
}

template <auto Set, auto Get>
Field word(std::string_view key, std::span<const Word> words, std::string_view description) {
    Field row = field(key, Shape::WORD, description);
    row.words = words;
    row.setNumber = setNumber<Set>;
    row.getNumber = getNumber<Get>;
    return row;
}

template <auto Refer>
void refer(ZORModelObject& object, ZORModelObject& referred) {
    (static_cast<OwnerOf<Refer>&>(object).*Refer)(static_cast<ArgumentOf<Refer>>(&referred));
}

template <auto Refer, auto Get>
Field reference(std::string_view key, const Target& target, std::string_view description) {
    Field row = field(key, Shape::REFERENCE, description);
    row.target = &target;
    row.refer = refer<Refer>;
    row.count = [](const ZORModelObject& object) -> std::size_t {
        return valueOf<Get>(object) == nullptr ? 0 : 1;
    };
    row.getObject = [](const ZORModelObject& object, std::size_t) -> const ZORObject* {
        return valueOf<Get>(object);
    };
    return row;
}

/// For fields that stand for a list of the object.
template <auto Get>
void setList(Field& row) {
    row.count = [](const ZORModelObject& object) { return valueOf<Get>(object).size(); };
    row.getObject = [](const ZORModelObject& object, std::size_t index) -> const ZORObject* {
        return valueOf<Get>(object)[index];
    };
}

template <auto Refer, auto Get>
Field references(std::string_view key, const Target& target, std::string_view description) {
    Field row = field(key, Shape::REFERENCES, description);
    row.target = &target;
    row.refer = refer<Refer>;
    setList<Get>(row);
    return row;
}

template <auto Add, auto Get>
Field objects(std::string_view key, Family family, std::string_view description) {
    using Part = typename ArgumentOf<Add>::element_type;
    Field row = field(key, Shape::OBJECTS, description);
    row.family = family;
    row.add = [](ZORModelObject& object, std::unique_ptr<ZORModelObject> part) {
        (static_cast<OwnerOf<Add>&>(object).*Add)(std::unique_ptr<Part>(static_cast<Part*>(part.release())));
    };
    setList<Get>(row);
    return row;
}

inline Field required(Field row) {
    row.required = true;
    return row;
}

/// Puts the fields that every object has (notes, type values and role-name maps excepted) before its own.
std::vector<Field> withCommonFields(std::vector<Field> own);

extern const Target ANY_OBJECT;
extern const Target ANY_TYPE;
extern const Target ANY_CLASS;
extern const Target ANY_ATTRIBUTE;
extern const Target ANY_CANDIDATE_KEY;
extern const Target ANY_FOREIGN_KEY;
extern const Target ANY_ELEMENT;
extern const Target OWN_ATTRIBUTE;
extern const Target OWN_KEY;
extern const Target FREE_FOREIGN_KEY;
extern const Target FREE_CLASS;

extern const std::span<const Word> VISIBILITIES;
extern const std::span<const Word> CONCURRENCIES;

// The rows by subject. Each list stands in the order in which the object's parts are walked over.
std::vector<Field> documentFields();
std::vector<Field> modelFields();
std::vector<Field> catalogFields();
std::vector<Field> packageFields();
std::vector<Field> diagramFields();
/// Of the kinds of types, only derived and alias types have a base, and only class types a class.
enum class TypeKind { BASE, CONCRETE, DERIVED, ALIAS, CLASS };
std::vector<Field> typeFields(TypeKind kind);
std::vector<Field> typeValueFields();
std::vector<Field> classFields();
std::vector<Field> attributeFields();
std::vector<Field> roleNameMapFields();
std::vector<Field> candidateKeyFields();
std::vector<Field> foreignKeyFields();
std::vector<Field> indexFields();
std::vector<Field> indexMemberFields();
std::vector<Field> operationFields();
std::vector<Field> triggerFields();
std::vector<Field> argumentFields();
std::vector<Field> viewFields();
std::vector<Field> columnFields();
std::vector<Field> associationFields();
std::vector<Field> roleFields();
std::vector<Field> generalizationFields();
std::vector<Field> dependencyFields();
std::vector<Field> realizationFields();

}  // namespace readers::document
