#include "Inspection.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <set>

#include "Text.h"
#include "Views.h"
#include "ZORNearest.h"

namespace cli {

namespace {

/// The kind under which an object is counted; none for the model and its catalogs, which stand around it all.
std::optional<ObjectKind> kindOf(const ZORObject& object) {
    switch (object.getElementType()) {
        case ZOR_DESIGN_PACKAGE:
            return ObjectKind::PACKAGE;
        case ZOR_CLASS:
            return ObjectKind::CLASS;
        case ZOR_ATTRIBUTE:
            // The qualifiers of associations belong to no class.
            return static_cast<const ZORAttribute&>(object).getAssociatedClass() == nullptr
                       ? ObjectKind::QUALIFIER
                       : ObjectKind::ATTRIBUTE;
        case ZOR_CANDIDATE_KEY:
            return ObjectKind::CANDIDATE_KEY;
        case ZOR_FOREIGN_KEY:
            return ObjectKind::FOREIGN_KEY;
        case ZOR_INDEX:
            return ObjectKind::INDEX;
        case ZOR_ASSOCIATION:
            return ObjectKind::ASSOCIATION;
        case ZOR_GENERALIZATION:
            return ObjectKind::GENERALIZATION;
        case ZOR_DEPENDENCY:
            return ObjectKind::DEPENDENCY;
        case ZOR_REALIZATION:
            return ObjectKind::REALIZATION;
        case ZOR_SQL_VIEW_ENTITY:
            return ObjectKind::VIEW;
        case ZOR_SQL_VIEW_ATTRIBUTE:
            return ObjectKind::VIEW_COLUMN;
        case ZOR_OPERATION:
            return ObjectKind::OPERATION;
        case ZOR_STORED_PROCEDURE:
            return ObjectKind::PROCEDURE;
        case ZOR_TRIGGER:
            return ObjectKind::TRIGGER;
        case ZOR_SYNONYM:
            return ObjectKind::SYNONYM;
        case ZOR_DIAGRAM:
            return ObjectKind::DIAGRAM;
        case ZOR_TYPE_VALUE:
            return ObjectKind::TYPE_VALUE;
        case ZOR_INDEX_MEMBER:
            return ObjectKind::INDEX_COLUMN;
        case ZOR_ASSOCIATION_ROLE:
            return ObjectKind::ASSOCIATION_END;
        case ZOR_ARGUMENT:
            return ObjectKind::ARGUMENT;
        case ZOR_NOTE:
            return ObjectKind::NOTE;
        default:
            return object.isInstanceOf(ZOR_TYPE) ? std::optional(ObjectKind::TYPE) : std::nullopt;
    }
}

std::string wordFor(const ZORObject& object, bool databaseWords) {
    if (const std::optional<ObjectKind> kind = kindOf(object)) {
        const ObjectKindEntry& entry = objectKinds()[static_cast<std::size_t>(*kind)];
        return databaseWords ? entry.databaseSingular : entry.singular;
    }
    switch (object.getElementType()) {
        case ZOR_MODEL:
            return "model";
        case ZOR_DATABASE_CATALOG:
            return "database catalog";
        default:
            return "object";
    }
}

std::string displayNameOf(const ZORObject& object) {
    return object.isInstanceOf(ZOR_MODEL_OBJECT)
               ? std::string(static_cast<const ZORModelObject&>(object).getDisplayName().view())
               : std::string();
}

std::string databaseNameOf(const ZORObject& object) {
    return object.isInstanceOf(ZOR_MODEL_OBJECT)
               ? std::string(getPhysicalName(static_cast<const ZORModelObject&>(object)).view())
               : std::string();
}

/// Comes to every object that has a name, with its path. What belongs to the model itself has a path without
/// the model.
class NameWalk : public ZORTraversalOperation {
  public:
    using NameOf = std::string(const ZORObject& object);
    using Receiver = std::function<void(const ZORObject& object, const std::string& path)>;

    NameWalk(NameOf* nameOf, Receiver receiver) : nameOf_(nameOf), receiver_(std::move(receiver)) {}
    void run(ZORModel& model) {
        void* context = nullptr;
        model._depthTraversal(*this, context);
    }

    bool pre_process(ZORObject* object, void*& /*context*/) override {
        lengths_.push_back(path_.size());
        const std::string name = nameOf_(*object);
        if (!name.empty()) {
            path_ += path_.empty() ? name : "." + name;
            receiver_(*object, path_);
        }
        if (object->getElementType() == ZOR_MODEL) {
            path_.clear();
        }
        return true;
    }
    bool post_process(ZORObject* /*object*/, void*& /*context*/) override {
        path_.resize(lengths_.back());
        lengths_.pop_back();
        return true;
    }

  private:
    NameOf* nameOf_;
    Receiver receiver_;
    std::string path_;
    std::vector<std::size_t> lengths_;
};

std::vector<NamedObject> findPaths(ZORModel& model, const std::string& name, bool databaseWords,
                                   bool ignoreCase) {
    const std::string wanted = ignoreCase ? foldCase(name) : name;
    std::set<const ZORObject*> wantedObjects;
    for (NameWalk::NameOf* nameOf : {&displayNameOf, &databaseNameOf}) {
        NameWalk(nameOf, [&](const ZORObject& object, const std::string& path) {
            if (isEndOfPath(ignoreCase ? foldCase(path) : path, wanted)) {
                wantedObjects.insert(&object);
            }
        }).run(model);
    }
    std::vector<NamedObject> found;
    NameWalk(&displayNameOf, [&](const ZORObject& object, const std::string& path) {
        if (wantedObjects.contains(&object)) {
            found.push_back({&object, wordFor(object, databaseWords), path});
        }
    }).run(model);
    return found;
}

class Counter : public ZORExportObserver {
  public:
    void written(const ZORObject* object, const char* area, const ZORString& /*tag*/) override {
        if (KindVerdicts* kind = find(object, area)) {
            ++kind->written;
        }
    }
    void leftOut(const ZORObject* object, const char* area, const ZORString& /*reason*/,
                 const ZORString& reasonInGeneral) override {
        if (KindVerdicts* kind = find(object, area)) {
            ++kind->leftOut;
            ++kind->reasons[std::string(reasonInGeneral.view())];
        }
    }

    std::vector<ViewVerdicts> views;

  private:
    KindVerdicts* find(const ZORObject* object, std::string_view area) {
        const std::optional<ObjectKind> kind = kindOf(*object);
        auto view = std::find_if(views.begin(), views.end(),
                                 [&](const ViewVerdicts& known) { return known.view == area; });
        if (view == views.end()) {
            view = views.insert(views.end(), {std::string(area)});
        }
        return kind ? &view->kinds[*kind] : nullptr;
    }
};

class Listener : public ZORExportObserver {
  public:
    explicit Listener(std::vector<NamedObject>& objects) {
        for (NamedObject& object : objects) {
            objects_.emplace(object.object, &object);
        }
    }
    void written(const ZORObject* object, const char* area, const ZORString& tag) override {
        add(object, area, true, tag);
    }
    void leftOut(const ZORObject* object, const char* area, const ZORString& reason,
                 const ZORString& /*reasonInGeneral*/) override {
        add(object, area, false, reason);
    }
    void writtenExcept(const ZORObject* object, const char* /*area*/, const ZORString& exception) override {
        if (const auto found = objects_.find(object); found != objects_.end()) {
            found->second->verdicts.back().exceptions.emplace_back(exception.view());
        }
    }

  private:
    void add(const ZORObject* object, const char* area, bool isWritten, const ZORString& text) {
        if (const auto found = objects_.find(object); found != objects_.end()) {
            found->second->verdicts.push_back({area, isWritten, std::string(text.view())});
        }
    }

    std::unordered_map<const ZORObject*, NamedObject*> objects_;
};

}  // namespace

std::vector<NamedObject> findNamed(ZORModel& model, const std::string& name, bool databaseWords) {
    std::vector<NamedObject> found = findPaths(model, name, databaseWords, false);
    return found.empty() ? findPaths(model, name, databaseWords, true) : found;
}

std::string describeNearestNames(ZORModel& model, const std::string& name) {
    std::set<std::string> names;
    NameWalk(&displayNameOf, [&](const ZORObject& object, const std::string& /*path*/) {
        names.insert(displayNameOf(object));
    }).run(model);
    return describeNearest(name.substr(name.rfind('.') + 1), {names.begin(), names.end()});
}

std::vector<ViewVerdicts> countVerdicts(const ZORBridge& bridge, ZORModel& model, ZOROptionList& options,
                                        ZORLog& log) {
    Counter counter;
    bridge.inspect(model, options, log, counter);
    return std::move(counter.views);
}

void addVerdicts(const ZORBridge& bridge, ZORModel& model, ZOROptionList& options, ZORLog& log,
                 std::vector<NamedObject>& objects) {
    Listener listener(objects);
    bridge.inspect(model, options, log, listener);
}

std::string_view titleOfView(std::string_view view) {
    const View* known = findViewByName(view);
    return known == nullptr ? view : known->title;
}

}  // namespace cli
