// The words for what is left out without a filter having been asked, or by more than one.

#include "LeavingReasons.h"

#include <algorithm>
#include <iterator>

namespace {

/// Kinds of objects that a subject area has no elements for, by element type; null: it has.
struct MissingKind {
    ZORElementType type;
    const char* uml;
    const char* erd;
    const char* dbm;
};

constexpr const char* NO_VIEWS = "the {view} has no SQL views";
constexpr const char* NO_INDEXES = "the {view} has no indexes";
constexpr const char* NO_SYNONYMS = "the {view} has no synonyms";
constexpr const char* NO_OPERATIONS = "the {view} has no operations";
constexpr const char* NO_DEPENDENCIES = "the {view} has no dependencies";
constexpr const char* NO_REALIZATIONS = "the {view} has no realizations";
constexpr const char* NO_DIAGRAMS = "the {view} has no diagrams";
constexpr const char* NO_NOTES = "the {view} has no notes";
constexpr const char* NO_VALUES = "the {view} has no values of data types";

constexpr MissingKind MISSING_KINDS[] = {
    {ZOR_DATABASE_CATALOG, "the {view} names no database", "the {view} names no database",
     "the model is written as the catalog"},
    {ZOR_DESIGN_PACKAGE, nullptr, "the {view} has no packages", nullptr},
    {ZOR_SQL_VIEW_ENTITY, NO_VIEWS, NO_VIEWS, nullptr},
    {ZOR_CANDIDATE_KEY, "the {view} has no keys", nullptr, nullptr},
    {ZOR_FOREIGN_KEY, "the {view} has no keys", nullptr, nullptr},
    {ZOR_INDEX, NO_INDEXES, NO_INDEXES, nullptr},
    {ZOR_SYNONYM, NO_SYNONYMS, NO_SYNONYMS, nullptr},
    {ZOR_OPERATION, nullptr, NO_OPERATIONS, nullptr},
    {ZOR_STORED_PROCEDURE, nullptr, NO_OPERATIONS, nullptr},
    {ZOR_TRIGGER, nullptr, NO_OPERATIONS, nullptr},
    {ZOR_DEPENDENCY, nullptr, NO_DEPENDENCIES, NO_DEPENDENCIES},
    {ZOR_REALIZATION, nullptr, NO_REALIZATIONS, NO_REALIZATIONS},
    {ZOR_DIAGRAM, NO_DIAGRAMS, nullptr, NO_DIAGRAMS},
    {ZOR_NOTE, nullptr, NO_NOTES, NO_NOTES},
    {ZOR_TYPE_VALUE, NO_VALUES, nullptr, NO_VALUES},
};

}  // namespace

const char* findMissingKind(ZORElementType type, MDCSubjectArea area) {
    const auto* found = std::find_if(std::begin(MISSING_KINDS), std::end(MISSING_KINDS),
                                     [&](const MissingKind& kind) { return kind.type == type; });
    if (found == std::end(MISSING_KINDS)) {
        return nullptr;
    }
    return area == UML ? found->uml : area == ERD ? found->erd : found->dbm;
}

const char* describePart(ZORElementType owner, MDCSubjectArea area) {
    switch (owner) {
        case ZOR_CLASS:
            return area == DBM ? "its table \"{0}\" is left out" : "its class \"{0}\" is left out";
        case ZOR_SQL_VIEW_ENTITY:
            return "its view \"{0}\" is left out";
        case ZOR_DESIGN_PACKAGE:
            return "its package \"{0}\" is left out";
        case ZOR_OPERATION:
        case ZOR_STORED_PROCEDURE:
        case ZOR_TRIGGER:
            return "its operation \"{0}\" is left out";
        case ZOR_INDEX:
            return "its index \"{0}\" is left out";
        case ZOR_ASSOCIATION:
            return area == UML ? "its association \"{0}\" is left out"
                               : "its relationship \"{0}\" is left out";
        default:
            // For kinds of objects that a model does not have yet.
            return "what it belongs to is left out";
    }
}

const char* findPlaceRule(ZORElementType type, ZORElementType owner, MDCSubjectArea area) {
    const bool isOperation = type == ZOR_OPERATION || type == ZOR_STORED_PROCEDURE || type == ZOR_TRIGGER;
    if (area == UML && isOperation && owner == ZOR_DESIGN_PACKAGE) {
        return "the {view} has no operations of packages";
    }
    if (area == UML && type == ZOR_NOTE) {
        return "the {view} has no notes on what it belongs to";
    }
    if (area == ERD && type == ZOR_TYPE_VALUE) {
        return "only a derived type has its values in the {view}";
    }
    if (area == DBM && type == ZOR_STORED_PROCEDURE && owner == ZOR_CLASS) {
        return "procedures of a class of this type are not written";
    }
    if (area == DBM && isOperation) {
        return "it is neither a procedure nor a trigger of a table";
    }
    if (area != UML && type == ZOR_ARGUMENT && owner == ZOR_CLASS) {
        return "the {view} has no template parameters";
    }
    if (area != UML && type == ZOR_ATTRIBUTE && owner == ZOR_ASSOCIATION_ROLE) {
        return "the {view} has no qualifiers";
    }
    return nullptr;
}

const char* describeRelationshipOf(const ZORForeignKey& key) {
    return key.getAssociationRoles().size() > 1
               ? "the relationship \"{0}\", the last of those that share it, is left out"
               : "its relationship \"{0}\" is left out";
}
