#include "Rows.h"

namespace readers::document {

namespace {

template <auto Refer, auto Get>
Field base() {
    return reference<Refer, Get>("base", ANY_TYPE, "The type that this one is made from, or is a name for.");
}

}  // namespace

std::vector<Field> typeFields(TypeKind kind) {
    std::vector<Field> fields = withCommonFields({
        text<&ZORType::setDataType, &ZORType::getDataType>(
            "dataType", "The data-type name, such as \"SQL_VARCHAR\" or \"numeric\"."),
        integer<&ZORType::setLength, &ZORType::getLength>("length", 0, HIGHEST_INTEGER,
                                                          "Characters, digits or bytes; 0 when not set."),
        integer<&ZORType::setScale, &ZORType::getScale>("scale", 0, HIGHEST_INTEGER,
                                                        "Digits behind the point; 0 when not set."),
        text<&ZORType::setInitialValue, &ZORType::getInitialValue>("initialValue",
                                                                   "What a value is at first."),
        text<&ZORType::setLowerBound, &ZORType::getLowerBound>("lowerBound", "The lowest permitted value."),
        text<&ZORType::setUpperBound, &ZORType::getUpperBound>("upperBound", "The highest permitted value."),
        objects<&ZORType::addTypeValue, &ZORType::getTypeValues>("values", Family::TYPE_VALUES,
                                                                 "The permitted values of an enumeration."),
    });
    if (kind == TypeKind::DERIVED) {
        fields.push_back(base<&ZORDerivedType::setBaseType, &ZORDerivedType::getBaseType>());
    } else if (kind == TypeKind::ALIAS) {
        fields.push_back(base<&ZORAliasType::setBaseType, &ZORAliasType::getBaseType>());
    } else if (kind == TypeKind::CLASS) {
        fields.push_back(
            required(reference<&ZORClassType::setAssociatedClass, &ZORClassType::getAssociatedClass>(
                "class", ANY_CLASS, "The class whose objects are the type's values.")));
    }
    return fields;
}

std::vector<Field> typeValueFields() {
    return {
        text<&ZORTypeValue::setName, &ZORTypeValue::getName>("name", "The name."),
        integer<&ZORTypeValue::setCode, &ZORTypeValue::getCode>("code", -32768, 32767, "The numeric code."),
        text<&ZORTypeValue::setValue, &ZORTypeValue::getValue>("value", "The text that is stored."),
    };
}

}  // namespace readers::document
