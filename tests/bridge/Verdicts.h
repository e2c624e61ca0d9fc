// What the tests of inspections share: an observer that keeps what it is told.
#pragma once

#include <map>
#include <string>

#include "TestBridge.h"

namespace support {

struct Verdict {
    std::string tag;  ///< empty: left out
    std::string reason;
    std::string reasonInGeneral;
    std::string exceptions = {};  ///< with ", but" in front
};

/// Keeps what it is told.
class Verdicts : public ZORExportObserver {
  public:
    using Key = std::pair<const ZORObject*, std::string>;

    void written(const ZORObject* object, const char* area, const ZORString& tag) override {
        add(object, area, {std::string(tag.view()), {}, {}});
    }
    void leftOut(const ZORObject* object, const char* area, const ZORString& reason,
                 const ZORString& reasonInGeneral) override {
        add(object, area, {{}, std::string(reason.view()), std::string(reasonInGeneral.view())});
    }

    void writtenExcept(const ZORObject* object, const char* area, const ZORString& exception) override {
        Verdict& verdict = verdicts.at({object, area});
        verdict.exceptions += (verdict.exceptions.empty() ? ", but " : "; ") + std::string(exception.view());
    }

    /// "as TAG", or the reason; "nothing" for an object that was not told of.
    std::string of(const ZORObject* object, const std::string& area) const {
        const auto found = verdicts.find({object, area});
        if (found == verdicts.end()) {
            return "nothing";
        }
        const Verdict& verdict = found->second;
        return verdict.tag.empty() ? verdict.reason : "as " + verdict.tag + verdict.exceptions;
    }

    std::map<Key, Verdict> verdicts;
    std::size_t repeated = 0;

  private:
    void add(const ZORObject* object, const char* area, const Verdict& verdict) {
        repeated += verdicts.emplace(Key{object, area}, verdict).second ? 0U : 1U;
    }
};

inline Verdicts inspect(ZORModel& model, std::initializer_list<std::pair<const char*, const char*>> values) {
    TestOptions options(values);
    CollectingLog log;
    Verdicts verdicts;
    auto& inspection =
        dynamic_cast<ZORBridgeInspectionInterface&>(*getZORMicrosoftSqlServerMdsMdcExportInterface());
    inspection.inspect(model, options, log, verdicts);
    return verdicts;
}

}  // namespace support
