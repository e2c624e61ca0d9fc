#include "Inspection.h"

#include <string>

#include "LeavingReasons.h"

namespace {

ZORString nameOf(const ZORObject* object) {
    return object == nullptr || !object->isInstanceOf(ZOR_MODEL_OBJECT)
               ? ZORString()
               : static_cast<const ZORModelObject*>(object)->getDisplayName();
}

ZORString quotedName(const ZORClass* cls) {
    const ZORString name = nameOf(cls);
    return name.isEmpty() ? ZORString("a class without a name") : "\"" + name + "\"";
}

/// Puts what it stands for in the place of a mark in the text.
void replaceMark(std::string& text, std::string_view mark, std::string_view replacement) {
    if (const std::size_t at = text.find(mark); at != std::string::npos) {
        text.replace(at, mark.size(), replacement);
    }
}

/// The text with view and name in their places; without a name there is no place either.
ZORString fill(const char* text, const ZORString& name, MDCSubjectArea area) {
    std::string filled(text);
    replaceMark(filled, "{view}", area == UML ? "UML view" : area == ERD ? "ERD view" : "DBM view");
    replaceMark(filled, " \"{0}\"", name.isEmpty() ? "" : " \"" + std::string(name.view()) + "\"");
    return ZORString(std::string_view(filled));
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

void Inspection::standsForPair(const ZORObject* own, const ZORGeneralization* generalization,
                               const ZORClass* subtype, const ZORClass* supertype) {
    standsFor(own, generalization);
    pairs_[generalization].push_back({own, subtype, supertype});
}

void Inspection::noteWritten(const ZORObject* object, const ZORString& tag) {
    const auto standIn = standIns_.find(object);
    const MDCSubjectArea area = tag.view().starts_with("uml:")   ? UML
                                : tag.view().starts_with("erd:") ? ERD
                                                                 : DBM;
    const auto tell = [&](const ZORObject* written) {
        Note& note = notes_[written][area];
        if (note.tag.isEmpty()) {
            note.tag = tag;
        }
    };
    tell(object);
    if (standIn != standIns_.end()) {
        tell(standIn->second);
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
    auto exception = exceptions_.begin();
    for (std::size_t i = 0; i < verdicts_.size(); ++i) {
        const Verdict& verdict = verdicts_[i];
        if (verdict.tag.isEmpty()) {
            observer.leftOut(verdict.object, NAMES[verdict.area], verdict.reason, verdict.reasonInGeneral);
        } else {
            observer.written(verdict.object, NAMES[verdict.area], verdict.tag);
        }
        for (; exception != exceptions_.end() && exception->verdict == i; ++exception) {
            observer.writtenExcept(verdict.object, NAMES[verdict.area], exception->text);
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
        addExceptions(object, area);
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

void Inspection::addExceptions(const ZORObject* object, MDCSubjectArea area) {
    const auto pairs = pairs_.find(object);
    if (pairs == pairs_.end()) {
        return;
    }
    const std::vector<Pair>& all = pairs->second;
    for (std::size_t i = 0; i < all.size(); ++i) {
        // Where associations stand for the pairs, the last one was made first.
        const Pair& pair = all[area == UML ? i : all.size() - 1 - i];
        const Note* note = find(pair.own, area);
        if (note == nullptr || !note->leftOut || !note->tag.isEmpty()) {
            continue;
        }
        ZORString text = "not for " + quotedName(pair.subtype);
        if (pair.supertype != nullptr) {
            text.append(" as a subtype of ").append(quotedName(pair.supertype).view());
        }
        text.append(": ").append(describe(note->reason, area, false).view());
        exceptions_.push_back({verdicts_.size() - 1, std::move(text)});
    }
}

LeavingReason Inspection::reasonWithoutNote(const ZORObject* object, const ZORObject* owner,
                                            MDCSubjectArea area) {
    const ZORElementType type = object->getElementType();
    if (type == ZOR_DATABASE_CATALOG || inCatalogs_.contains(owner)) {
        inCatalogs_.insert(object);
    }
    if (inCatalogs_.contains(owner)) {
        return {"the {view} has nothing of what is in a database catalog"};
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
        return {!hasDataTypes_           ? "no type set is chosen for the {view}"
                : type == ZOR_ALIAS_TYPE ? "columns are written with the type that it stands for"
                                         : "no column in the {view} has it"};
    }
    // For kinds of objects that a model does not have yet.
    return {"it has no place in the {view}"};
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
            const ZORString name = inGeneral ? ZORString() : nameOf(step->other);
            text.append(text.isEmpty() ? "" : ": ").append(fill(step->text, name, area).view());
            if (inGeneral) {
                break;
            }
        }
        const Note* cause = step->cause == nullptr ? nullptr : find(step->cause, area);
        step = cause != nullptr && cause->leftOut && cause->tag.isEmpty() ? &cause->reason : nullptr;
    }
    return text;
}
