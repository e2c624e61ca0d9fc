#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "Assembly.h"

namespace readers::xmi {

/// The data types of the model: those that the file declares, and those that it only refers to.
class Types {
  public:
    explicit Types(Assembly& assembly) : assembly_(assembly) {}

    /// Makes the declared types, in the order of the file.
    void declare();

    /// The type that the element refers to by the value "type". Every element has one: what the file does not
    /// hold becomes a data type of that name, what has no type at all has the type "unspecified".
    ZORType* of(Element typed);
    /// The same for an element that need not have one: null without a type.
    ZORType* ofOptional(Element typed);
    /// The class or data type of that name, or a new data type.
    ZORType* named(std::string_view name);
    /// A data type of that name beside the declared ones.
    ZORType* standIn(std::string_view name);
    ZORType* unspecified() { return standIn("unspecified"); }

  private:
    using DataTypes = std::unordered_map<const ZORType*, std::string>;

    void addLiterals(ZORType& type, Element enumeration);
    void addLiteral(ZORType& type, Element literal);
    void deriveFromBases();
    static void decideDataType(const ZORType& type, DataTypes& decided);
    ZORType* ofTarget(const Target& target, Element typed);
    ZORType* ofNode(NodeIndex node, Element typed);
    ZORType* classType(NodeIndex cls);
    NodeIndex findByName(std::string_view name);
    template <typename Type>
    Type* add(std::string_view name);

    Assembly& assembly_;
    std::unordered_map<NodeIndex, ZORType*> typesOfNodes_;
    std::unordered_map<std::string, ZORType*> standIns_;
    std::unordered_map<std::string_view, NodeIndex> nodesByName_;
    bool namesAreKnown_ = false;
};

}  // namespace readers::xmi
