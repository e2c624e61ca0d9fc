#include "Inspection.h"

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

constexpr const char* NO_VIEWS = "the view has no SQL views";
constexpr const char* NO_INDEXES = "the view has no indexes";
constexpr const char* NO_SYNONYMS = "the view has no synonyms";
constexpr const char* NO_OPERATIONS = "the view has no operations";
constexpr const char* NO_DEPENDENCIES = "the view has no dependencies";
constexpr const char* NO_REALIZATIONS = "the view has no realizations";
constexpr const char* NO_DIAGRAMS = "the view has no diagrams";
constexpr const char* NO_NOTES = "the view has no notes";
constexpr const char* NO_VALUES = "the view has no values of data types";

constexpr MissingKind MISSING_KINDS[] = {
    {ZOR_DATABASE_CATALOG, "the view names no database", "the view names no database",
     "the model is written as the catalog"},
    {ZOR_DESIGN_PACKAGE, nullptr, "the view has no packages", nullptr},
    {ZOR_SQL_VIEW_ENTITY, NO_VIEWS, NO_VIEWS, nullptr},
    {ZOR_CANDIDATE_KEY, "the view has no keys", nullptr, nullptr},
    {ZOR_FOREIGN_KEY, "the view has no keys", nullptr, nullptr},
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

const char* findMissingKind(ZORElementType type, MDCSubjectArea area) {
    const auto* found = std::find_if(std::begin(MISSING_KINDS), std::end(MISSING_KINDS),
                                     [&](const MissingKind& kind) { return kind.type == type; });
    if (found == std::end(MISSING_KINDS)) {
        return nullptr;
    }
    return area == UML ? found->uml : area == ERD ? found->erd : found->dbm;
}

/// What is left out because the object is.
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

/// The rules about objects that no filter is asked about, because of what they belong to.
const char* findPlaceRule(ZORElementType type, ZORElementType owner, MDCSubjectArea area) {
    const bool isOperation = type == ZOR_OPERATION || type == ZOR_STORED_PROCEDURE || type == ZOR_TRIGGER;
    if (area == UML && isOperation && owner == ZOR_DESIGN_PACKAGE) {
        return "the view has no operations of packages";
    }
    if (area == UML && type == ZOR_NOTE) {
        return "the view has no notes on what it belongs to";
    }
    if (area == ERD && type == ZOR_TYPE_VALUE) {
        return "only a derived type has its values in the view";
    }
    if (area == DBM && type == ZOR_STORED_PROCEDURE && owner == ZOR_CLASS) {
        return "procedures of a class of this type are not written";
    }
    if (area == DBM && isOperation) {
        return "it is neither a procedure nor a trigger of a table";
    }
    if (area != UML && type == ZOR_ARGUMENT && owner == ZOR_CLASS) {
        return "the view has no template parameters";
    }
    if (area != UML && type == ZOR_ATTRIBUTE && owner == ZOR_ASSOCIATION_ROLE) {
        return "the view has no qualifiers";
    }
    return nullptr;
}

ZORString nameOf(const ZORObject* object) {
    return object == nullptr || !object->isInstanceOf(ZOR_MODEL_OBJECT)
               ? ZORString()
               : static_cast<const ZORModelObject*>(object)->getDisplayName();
}

/// The text with the name in its place; without a name there is no place either.
ZORString withName(const char* text, const ZORString& name) {
    const std::string_view place = " \"{0}\"";
    const std::string_view whole(text);
    const std::size_t at = whole.find(place);
    ZORString filled(whole.substr(0, at));
    if (at == std::string_view::npos) {
        return filled;
    }
    if (!name.isEmpty()) {
        filled.append(" \"").append(name.view()).append('"');
    }
    return filled.append(whole.substr(at + place.size()));
}

}  // namespace

using Inspection = ZORMicrosoftSqlServerMdsMdcExportBridge::Inspection;

/// Comes to every object of the model with the one that it belongs to, the bridge's own objects left aside.
class Inspection::Walk : public ZORTraversalOperation {
  public:
    explicit Walk(Inspection& inspection) noexcept : inspection_(inspection) {}

    bool pre_process(ZORObject* object, void*& /*context*/) override {
        const ZORObject* owner = owners_.empty() ? nullptr : owners_.back();
        const bool isOwn = inspection_.standIns_.contains(object);
        if (!isOwn) {
            const MDCModelView view = inspection_.view_;
            if (view == MODEL_VIEW_UML) {
                inspection_.judge(object, owner, UML);
            }
            if (view == MODEL_VIEW_ERD || view == MODEL_VIEW_ERD_AND_DBM) {
                inspection_.judge(object, owner, ERD);
            }
            if (view == MODEL_VIEW_DBM || view == MODEL_VIEW_ERD_AND_DBM) {
                inspection_.judge(object, owner, DBM);
            }
        }
        owners_.push_back(object);
        return true;
    }
    bool post_process(ZORObject* /*object*/, void*& /*context*/) override {
        owners_.pop_back();
        return true;
    }

  private:
    Inspection& inspection_;
    std::vector<const ZORObject*> owners_;
};

void Inspection::noteWritten(const ZORObject* object, const ZORString& tag) {
    const auto standIn = standIns_.find(object);
    const MDCSubjectArea area = tag.view().starts_with("uml:")   ? UML
                                : tag.view().starts_with("erd:") ? ERD
                                                                 : DBM;
    Note& note = notes_[standIn == standIns_.end() ? object : standIn->second][area];
    if (note.tag.isEmpty()) {
        note.tag = tag;
    }
}

void Inspection::noteLeftOut(const ZORObject* object, MDCSubjectArea area, const LeavingReason& reason) {
    const auto standIn = standIns_.find(object);
    // What is told of the bridge's own objects is kept with them too: it may be somebody's cause.
    for (const ZORObject* told : {object, standIn == standIns_.end() ? object : standIn->second}) {
        Note& note = notes_[told][area];
        if (!note.leftOut) {
            note.leftOut = true;
            note.reason = reason;
        }
    }
}

void Inspection::conclude(ZORModel& model) {
    Walk walk(*this);
    void* context = nullptr;
    model._depthTraversal(walk, context);
}

void Inspection::report(ZORExportObserver& observer) const {
    static constexpr const char* NAMES[AREAS] = {"uml", "erd", "dbm"};
    for (const Verdict& verdict : verdicts_) {
        if (verdict.tag.isEmpty()) {
            observer.leftOut(verdict.object, NAMES[verdict.area], verdict.reason, verdict.reasonInGeneral);
        } else {
            observer.written(verdict.object, NAMES[verdict.area], verdict.tag);
        }
    }
}

const Inspection::Note* Inspection::find(const ZORObject* object, MDCSubjectArea area) const {
    const auto found = notes_.find(object);
    return found == notes_.end() ? nullptr : &found->second[area];
}

bool Inspection::isWritten(const ZORObject* object, MDCSubjectArea area) const {
    const Note* note = find(object, area);
    return note != nullptr && !note->tag.isEmpty();
}

void Inspection::judge(const ZORObject* object, const ZORObject* owner, MDCSubjectArea area) {
    if (isWritten(object, area)) {
        verdicts_.push_back({object, area, find(object, area)->tag, {}, {}});
        return;
    }
    Note& note = notes_[object][area];
    if (!note.leftOut) {
        note.leftOut = true;
        note.reason = reasonWithoutNote(object, owner, area);
    }
    verdicts_.push_back(
        {object, area, {}, describe(note.reason, area, false), describe(note.reason, area, true)});
}

LeavingReason Inspection::reasonWithoutNote(const ZORObject* object, const ZORObject* owner,
                                            MDCSubjectArea area) {
    const ZORElementType type = object->getElementType();
    if (type == ZOR_DATABASE_CATALOG || inCatalogs_.contains(owner)) {
        inCatalogs_.insert(object);
    }
    if (inCatalogs_.contains(owner)) {
        return {"the view has nothing of what is in a database catalog"};
    }
    if (const char* missing = findMissingKind(type, area)) {
        return {missing};
    }
    if (owner != nullptr && isLeftOutWith(owner, area)) {
        return {describePart(owner->getElementType(), area), owner, owner};
    }
    if (owner != nullptr) {
        if (const char* rule = findPlaceRule(type, owner->getElementType(), area)) {
            return {rule};
        }
    }
    if (area == DBM && object->isInstanceOf(ZOR_TYPE)) {
        return {!hasDataTypes_           ? "no type set is chosen for the view"
                : type == ZOR_ALIAS_TYPE ? "columns are written with the type that it stands for"
                                         : "no column in the view has it"};
    }
    // For kinds of objects that a model does not have yet.
    return {"it has no place in the view"};
}

/// That the ERD view has no packages says nothing of what is in them.
bool Inspection::isLeftOutWith(const ZORObject* owner, MDCSubjectArea area) const {
    const bool isPackageWithoutElement =
        owner->isInstanceOf(ZOR_PACKAGE) && findMissingKind(owner->getElementType(), area) != nullptr;
    return !isWritten(owner, area) && !isPackageWithoutElement;
}

ZORString Inspection::describe(const LeavingReason& reason, MDCSubjectArea area, bool inGeneral) const {
    /// A cause may have a cause; longer chains than this would help nobody.
    constexpr int MOST_CAUSES = 5;
    ZORString text;
    const LeavingReason* step = &reason;
    for (int causes = 0; step != nullptr && causes <= MOST_CAUSES; ++causes) {
        if (step->text != nullptr) {
            text.append(text.isEmpty() ? "" : ": ")
                .append(withName(step->text, inGeneral ? ZORString() : nameOf(step->other)).view());
            if (inGeneral) {
                break;
            }
        }
        const Note* cause = step->cause == nullptr ? nullptr : find(step->cause, area);
        step = cause != nullptr && cause->leftOut && cause->tag.isEmpty() ? &cause->reason : nullptr;
    }
    return text;
}
