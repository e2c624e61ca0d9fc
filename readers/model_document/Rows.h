#pragma once

#include <utility>

#include "Vocabulary.h"

/// How rows of the tables are written: `text<&ZORType::setDataType>("dataType", "...")` is a field whose text
/// goes to that operation of the object.
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

template <auto Operation>
using OwnerOf = typename OperationTraits<decltype(Operation)>::Owner;
template <auto Operation>
using ArgumentOf = typename OperationTraits<decltype(Operation)>::Argument;

inline Field field(std::string_view key, Shape shape, std::string_view description) {
    Field row;
    row.key = key;
    row.shape = shape;
    row.description = description;
    return row;
}

template <auto Set>
Field text(std::string_view key, std::string_view description) {
    Field row = field(key, Shape::TEXT, description);
    row.setText = [](ZORModelObject& object, std::string_view value) {
        (static_cast<OwnerOf<Set>&>(object).*Set)(ZORString(value));
    };
    return row;
}

template <auto Set>
void setNumber(ZORModelObject& object, std::int32_t number) {
    (static_cast<OwnerOf<Set>&>(object).*Set)(static_cast<ArgumentOf<Set>>(number));
}

template <auto Set>
Field integer(std::string_view key, std::int32_t lowest, std::int32_t highest, std::string_view description) {
    Field row = field(key, Shape::INTEGER, description);
    row.lowest = lowest;
    row.highest = highest;
    row.setNumber = setNumber<Set>;
    return row;
}

template <auto Set>
Field boolean(std::string_view key, std::string_view description) {
    Field row = field(key, Shape::BOOLEAN, description);
    row.setNumber = setNumber<Set>;
    return row;
}

template <auto Set>
Field word(std::string_view key, std::span<const Word> words, std::string_view description) {
    Field row = field(key, Shape::WORD, description);
    row.words = words;
    row.setNumber = setNumber<Set>;
    return row;
}

template <auto Refer>
Field reference(std::string_view key, const Target& target, std::string_view description) {
    Field row = field(key, Shape::REFERENCE, description);
    row.target = &target;
    row.refer = [](ZORModelObject& object, ZORModelObject& referred) {
        (static_cast<OwnerOf<Refer>&>(object).*Refer)(static_cast<ArgumentOf<Refer>>(&referred));
    };
    return row;
}

template <auto Refer>
Field references(std::string_view key, const Target& target, std::string_view description) {
    Field row = reference<Refer>(key, target, description);
    row.shape = Shape::REFERENCES;
    return row;
}

template <auto Add>
Field objects(std::string_view key, Family family, std::string_view description) {
    using Part = typename ArgumentOf<Add>::element_type;
    Field row = field(key, Shape::OBJECTS, description);
    row.family = family;
    row.add = [](ZORModelObject& object, std::unique_ptr<ZORModelObject> part) {
        (static_cast<OwnerOf<Add>&>(object).*Add)(std::unique_ptr<Part>(static_cast<Part*>(part.release())));
    };
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
