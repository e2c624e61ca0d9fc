#pragma once

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "ModelCounts.h"
#include "ZORManager.h"

namespace cli {

/// What the bridge says of the objects of a model. Its verdicts are those of an export with the same options.

/// How many objects of a kind are written to a view, and how many are left out for which reason.
struct KindVerdicts {
    std::uint64_t written = 0;
    std::uint64_t leftOut = 0;
    std::map<std::string, std::uint64_t> reasons = {};
};

/// One of the views that documents are made of: "uml", "erd" or "dbm".
struct ViewVerdicts {
    std::string view;
    std::map<ObjectKind, KindVerdicts> kinds = {};  ///< those that the model has objects of
};

/// An object that somebody asked about, and what becomes of it in each view.
struct NamedObject {
    struct Verdict {
        std::string view;
        bool written;
        std::string text;  ///< the element's tag, or the reason
        /// What of it is not written: "not for \"Order\": ...".
        std::vector<std::string> exceptions = {};
    };
    const ZORObject* object;
    std::string kind;  ///< "table"
    std::string path;  ///< the names of what it belongs to and its own, with "." between them
    std::vector<Verdict> verdicts = {};
};

/// The objects of a name: the object's own, or the end of its path. Letter case counts, unless nothing is
/// called so; names in the database count as well. In the order of the model.
std::vector<NamedObject> findNamed(ZORModel& model, const std::string& name, bool databaseWords);
/// What may have been meant by a name that nothing has, as the end of a sentence; or nothing.
std::string describeNearestNames(ZORModel& model, const std::string& name);

/// Lets the bridge tell of the model, in the view of the options. Throws ZORException.
std::vector<ViewVerdicts> countVerdicts(const ZORBridge& bridge, ZORModel& model, ZOROptionList& options,
                                        ZORLog& log);
/// The same of some objects, to whose verdicts it adds.
void addVerdicts(const ZORBridge& bridge, ZORModel& model, ZOROptionList& options, ZORLog& log,
                 std::vector<NamedObject>& objects);

/// What reports call a view of these: "ERD view".
std::string_view titleOfView(std::string_view view);

}  // namespace cli
