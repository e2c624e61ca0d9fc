// References that lead nowhere, or to something else, and are no faults.

#include "GrammarTable.h"
#include "OimGrammar.h"

namespace oimcheck {
namespace {

/// References that may be loose.
struct LooseReference {
    std::string_view holder;  ///< the row of the grammar
    std::string_view tags;    ///< of the reference
    std::string_view target;  ///< the tag of what it may lead to; empty: nowhere
    std::string_view explanation;
};

constexpr std::string_view CLASS_AS_TYPE =
    "a class that is used as a type is referred to by the type, which has no element";

constexpr LooseReference LOOSE_REFERENCES[] = {
    {"uml:StructuralFeatureType", CLASSES, "", CLASS_AS_TYPE},
    {"uml:ParameterType", CLASSES, "", CLASS_AS_TYPE},
    {"uml:AssociationEndType@class", CLASSES, "",
     "the class at an association class's end may be physical only and left out"},
    {"uml:CommentAnnotatedElement", "uml:Class", "uml:Interface",
     "comments refer to an interface as a class"},
    {"dbm:JoinRoleColumnSet", "dbm:LogicalTable", "",
     "a relationship's table may be left out of the view, being of a class type that is no table"},
    {"dbm:UniqueKeyRoleUniqueKey", "dbm:UniqueKey", "",
     "the referenced key may be left out of the view with its table, or as one that is logical only or not "
     "marked unique"},
    {"dbm:ForeignKeyRoleForeignKey", "dbm:ForeignKey", "",
     "the foreign key may be left out with its table, or with the last of several relationships that share "
     "it"},
    {"erd:ParentRoleEntity", "erd:Entity", "",
     "a relationship's class may be left out of the view, being of a class type that is no entity"},
    {"erd:ChildRoleEntity", "erd:Entity", "",
     "a relationship's class may be left out of the view, being of a class type that is no entity"},
    {"erd:ParentRoleKey", "erd:Key", "",
     "the referenced key may be left out of the view with its attributes or its entity, or as one that is "
     "physical only"},
    {"erd:ChildRoleKey", "erd:Key", "",
     "the foreign key may be left out with its entity, or with the last of several relationships that share "
     "it"},
    {"uml:DependencySupplier@key", "erd:Key", "",
     "the foreign key of a relationship that is written may be left out with its entity, where subtypes "
     "share "
     "it"},
};

bool isAmong(std::string_view word, std::string_view words) {
    const auto padded = [](std::string_view text) { return " " + std::string(text) + " "; };
    return padded(words).find(padded(word)) != std::string::npos;
}

}  // namespace

std::string_view explainLooseReference(std::string_view holder, std::string_view tag,
                                       std::string_view target) {
    for (const LooseReference& reference : LOOSE_REFERENCES) {
        if (reference.holder == holder && reference.target == target && isAmong(tag, reference.tags)) {
            return reference.explanation;
        }
    }
    return {};
}

}  // namespace oimcheck
