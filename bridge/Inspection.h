#pragma once

#include <array>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "MicrosoftSqlServerMdsMdcExport.h"

/// Why an object is not in a subject area.
struct LeavingReason {
    /// The second half of a sentence about the object, with "{0}" for the name of another object and "{view}"
    /// for that of the view; null: the reason is that of the cause.
    const char* text = nullptr;
    const ZORObject* other = nullptr;  ///< the one that is named; may be null
    const ZORObject* cause = nullptr;  ///< an object that is left out itself, and therefore this one; or null
};

/// What an export tells while somebody looks on: which objects it writes, and why it leaves out others. In
/// the end there is one verdict on every object of the model for each subject area of the document.
///
/// While the export runs, objects are only noted: the bridge changes names for a time, and some objects that
/// it writes are its own.
class ZORMicrosoftSqlServerMdsMdcExportBridge::Inspection {
  public:
    Inspection(MDCModelView view, bool hasDataTypes) noexcept : view_(view), hasDataTypes_(hasDataTypes) {}

    /// What is told of the bridge's own object counts for the model's from now on; null: for none.
    void standsFor(const ZORObject* own, const ZORObject* object) { standIns_[own] = object; }
    /// The same of one that stands for a pair of the classes of a generalization; null for a
    /// supertype that needs no mention.
    void standsForPair(const ZORObject* own, const ZORGeneralization* generalization, const ZORClass* subtype,
                       const ZORClass* supertype);
    void noteWritten(const ZORObject* object, const ZORString& tag);
    /// Of several reasons the first counts: filters give the reason behind a reason first.
    void noteLeftOut(const ZORObject* object, MDCSubjectArea area, const LeavingReason& reason);

    /// Comes to its verdicts. The bridge's own objects must still be there, and names as they were.
    void conclude(ZORModel& model);
    void report(ZORExportObserver& observer) const;

  private:
    static constexpr std::size_t AREAS = 3;
    class Walk;

    struct Note {
        ZORString tag;  ///< empty: not written
        bool leftOut = false;
        LeavingReason reason;
    };
    struct Verdict {
        const ZORObject* object;
        MDCSubjectArea area;
        ZORString tag;
        ZORString reason;
        ZORString reasonInGeneral;
    };
    /// An object of the bridge's own that stands for a part of one of the model.
    struct Pair {
        const ZORObject* own;
        const ZORClass* subtype;
        const ZORClass* supertype;  ///< null: it goes without saying
    };
    struct Exception {
        std::size_t verdict;  ///< to which of the verdicts, which are in the same order
        ZORString text;
    };
    using Notes = std::array<Note, AREAS>;

    bool isWritten(const ZORObject* object, MDCSubjectArea area) const;
    const Note* find(const ZORObject* object, MDCSubjectArea area) const;
    void judge(const ZORObject* object, const ZORObject* owner, MDCSubjectArea area);
    /// The pairs of an object that are left out although the object is written.
    void addExceptions(const ZORObject* object, MDCSubjectArea area);
    LeavingReason reasonWithoutNote(const ZORObject* object, const ZORObject* owner, MDCSubjectArea area);
    bool isLeftOutWith(const ZORObject* owner, MDCSubjectArea area) const;
    /// The whole reason, that of its cause included; without names when it is to be told of many objects.
    ZORString describe(const LeavingReason& reason, MDCSubjectArea area, bool inGeneral) const;

    MDCModelView view_;
    bool hasDataTypes_;
    std::unordered_map<const ZORObject*, const ZORObject*> standIns_;
    std::unordered_map<const ZORObject*, std::vector<Pair>> pairs_;
    std::unordered_map<const ZORObject*, Notes> notes_;
    std::unordered_set<const ZORObject*> inCatalogs_;  ///< catalogs and all packages in them
    std::vector<Verdict> verdicts_;
    std::vector<Exception> exceptions_;
};
