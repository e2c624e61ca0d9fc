#include "Types.h"

#include <charconv>
#include <cstdint>

#include "DataTypeNames.h"
#include "Expressions.h"
#include "Wording.h"

namespace readers::xmi {

namespace {

/// The number that a text is, if it is one that a value's code can be.
bool parseCode(std::string_view text, std::int16_t& code) noexcept {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), code);
    return error == std::errc() && end == text.data() + text.size();
}

bool isTemplateParameter(Element element) noexcept {
    return element.role() == "ownedParameteredElement"_n || element.role() == "parameteredElement"_n ||
           element.role() == "parameter"_n || element.is("TemplateParameter"_n);
}

}  // namespace

template <typename Type>
Type* Types::add(std::string_view name) {
    Type* type = assembly_.model.addType(std::make_unique<Type>());
    type->setName(name);
    const std::string_view known = dataTypeOfPrimitive(name);
    type->setDataType(known.empty() ? name : known);
    return type;
}

void Types::declare() {
    for (NodeIndex index = 0; index < assembly_.tree.size(); ++index) {
        const Element element = assembly_.tree.at(index);
        const Becomes becomes = assembly_.plan.of(index);
        if (becomes != Becomes::DATA_TYPE && becomes != Becomes::ENUMERATION) {
            continue;
        }
        const bool isDerived = becomes == Becomes::ENUMERATION || assembly_.plan.baseTypeOf(index) != NO_NODE;
        const std::string_view name = element.text("name"_n);
        ZORType* type =
            isDerived ? static_cast<ZORType*>(add<ZORDerivedType>(name)) : add<ZORConcreteType>(name);
        typesOfNodes_.emplace(index, type);
        assembly_.record(element, type);
        if (becomes == Becomes::ENUMERATION) {
            type->setDataType("SQL_VARCHAR");
            addLiterals(*type, element);
        }
    }
    deriveFromBases();
}

void Types::addLiterals(ZORType& type, Element enumeration) {
    for (const Element child : enumeration) {
        if (child.is("EnumerationLiteral"_n) || child.role() == "literal"_n ||
            child.role() == "ownedLiteral"_n) {
            addLiteral(type, child);
        }
    }
}

void Types::addLiteral(ZORType& type, Element literal) {
    if (type.getTypeValueCount() > INT16_MAX) {
        assembly_.lose("enumeration literals", literal, "there are too many of them");
        literal.markAllRead();
        return;
    }
    ZORTypeValue* value = type.addTypeValue(std::make_unique<ZORTypeValue>());
    assembly_.record(literal, value);
    const std::string_view name = literal.text("name"_n);
    const Element specification = literal.child("specification"_n);
    const std::string stated =
        specification ? expressionText(assembly_, specification) : std::string(literal.text("value"_n));
    std::int16_t code = 0;
    value->setName(name);
    value->setValue(stated.empty() ? name : std::string_view(stated));
    value->setCode(parseCode(stated, code) ? code : static_cast<std::int16_t>(type.getTypeValueCount() - 1));
}

/// A derived type whose own name says nothing has the data type of what it is based on; an enumeration keeps
/// its own.
void Types::deriveFromBases() {
    std::vector<ZORDerivedType*> derived;
    DataTypes decided;
    for (NodeIndex index = 0; index < assembly_.tree.size(); ++index) {
        if (assembly_.plan.of(index) == Becomes::ENUMERATION) {
            const ZORType* enumeration = typesOfNodes_.at(index);
            decided.emplace(enumeration, enumeration->getDataType().view());
        }
        const NodeIndex base = assembly_.plan.isType(index) ? assembly_.plan.baseTypeOf(index) : NO_NODE;
        if (base != NO_NODE) {
            derived.push_back(static_cast<ZORDerivedType*>(typesOfNodes_.at(index)));
            derived.back()->setBaseType(typesOfNodes_.at(base));
        }
    }
    for (const ZORDerivedType* type : derived) {
        decideDataType(*type, decided);
    }
    for (ZORDerivedType* type : derived) {
        type->setDataType(ZORString(decided.at(type)));
    }
}

/// Decides for the type and all that it is derived from, whose data type is the same.
void Types::decideDataType(const ZORType& type, DataTypes& decided) {
    std::vector<const ZORType*> below;
    const ZORType* at = &type;
    while (!decided.contains(at) && at->getBaseType() != nullptr &&
           dataTypeOfPrimitive(at->getName()).empty()) {
        below.push_back(at);
        at = at->getBaseType();
    }
    const std::string result = decided.try_emplace(at, at->getDataType().view()).first->second;
    for (const ZORType* derived : below) {
        decided.emplace(derived, result);
    }
}

ZORType* Types::of(Element typed) {
    ZORType* type = ofOptional(typed);
    return type == nullptr ? unspecified() : type;
}

ZORType* Types::ofOptional(Element typed) {
    const Target target = assembly_.references.first(typed, "type"_n);
    return target.exists() ? ofTarget(target, typed) : nullptr;
}

ZORType* Types::ofTarget(const Target& target, Element typed) {
    if (target.isFound()) {
        return ofNode(target.node, typed);
    }
    if (target.form == Form::TEXT) {
        if (const NodeIndex node = findByName(target.text); node != NO_NODE) {
            return ofNode(node, typed);
        }
    }
    const std::string name(assembly_.externalNames.of(target));
    const bool isNew = !standIns_.contains(name);
    ZORType* type = standIn(name);
    if (isNew && !isWellKnownLibrary(target.text) && !isWellKnownLibrary(target.label)) {
        const std::string where(target.text);
        const bool isNameless =
            target.form == Form::HREF && name == nameInLink(target.text) && !canBeName(name);
        assembly_.context.warn(typed.path(),
                               (isNameless ? "its type and the type's name are in another file ("
                                           : "its type is not in the file (") +
                                   where + "); a data type \"" + name + "\" stands for it");
    }
    return type;
}

ZORType* Types::ofNode(NodeIndex node, Element typed) {
    if (assembly_.plan.isClass(node)) {
        return classType(node);
    }
    if (const auto found = typesOfNodes_.find(node); found != typesOfNodes_.end()) {
        return found->second;
    }
    const Element element = assembly_.tree.at(node);
    ZORType* type = add<ZORConcreteType>(element.text("name"_n));
    typesOfNodes_.emplace(node, type);
    if (!isTemplateParameter(element)) {
        assembly_.context.warn(typed.path(), "of its type, " + element.path() + " (" +
                                                 assembly_.tree.kindOf(node) +
                                                 "), only the name is kept, as a data type");
    }
    return type;
}

ZORType* Types::classType(NodeIndex cls) {
    const auto [found, isNew] = typesOfNodes_.try_emplace(cls, nullptr);
    if (isNew) {
        auto* object = static_cast<ZORClass*>(assembly_.objects[cls]);
        ZORClassType* type = assembly_.model.addType(std::make_unique<ZORClassType>());
        type->setName(object->getName());
        type->setAssociatedClass(object);
        found->second = type;
    }
    return found->second;
}

ZORType* Types::standIn(std::string_view name) {
    const auto [found, isNew] = standIns_.try_emplace(std::string(name), nullptr);
    if (isNew) {
        found->second = add<ZORConcreteType>(name);
    }
    return found->second;
}

ZORType* Types::named(std::string_view name) {
    const NodeIndex node = findByName(name);
    return node == NO_NODE ? standIn(name) : ofNode(node, assembly_.tree.at(node));
}

NodeIndex Types::findByName(std::string_view name) {
    if (!namesAreKnown_) {
        namesAreKnown_ = true;
        for (NodeIndex index = 0; index < assembly_.tree.size(); ++index) {
            if (assembly_.plan.isClass(index) || assembly_.plan.isType(index)) {
                nodesByName_.emplace(assembly_.tree.at(index).text("name"_n), index);
            }
        }
    }
    const auto found = nodesByName_.find(name);
    return found == nodesByName_.end() ? NO_NODE : found->second;
}

}  // namespace readers::xmi
