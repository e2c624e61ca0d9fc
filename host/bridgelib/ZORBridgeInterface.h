#pragma once

#include "ZORLog.h"
#include "ZOROption.h"

class ZORModel;
class ZORObject;

/// What a host shows of a bridge.
struct ZORBridgeSpecification {
    ZORString toolWebReference;
    ZORString vendorName;
    ZORString toolName;
    ZORString toolVersions;
    ZORString methodologySummary;
    ZORString furtherEntry;
    ZORString version;
    ZORString description;
    /// What the two flags mean is the host's; export bridges leave them 0.
    int flags[2] = {0, 0};
};

/// Hears, object by object, what an export writes and what it leaves out.
class ZORExportObserver {
  public:
    virtual ~ZORExportObserver() = default;
    /// The object is written to a subject area ("uml", "erd" or "dbm") as an element of this tag, or as part
    /// of one.
    virtual void written(const ZORObject* object, const char* area, const ZORString& tag) = 0;
    /// The object is left out of a subject area. The reason is the second half of a sentence about it: "its
    /// class \"Order\" is left out: it is logical only". The reason in general is short and names no
    /// objects, so that one can count how often it holds: "its class is left out".
    virtual void leftOut(const ZORObject* object, const char* area, const ZORString& reason,
                         const ZORString& reasonInGeneral) = 0;
    /// Told behind `written` of an object that stands for several elements, of each that is missing. The
    /// exception is the rest of a sentence behind "but": "not for \"Order\": its class \"Order\" is left
    /// out".
    virtual void writtenExcept(const ZORObject* /*object*/, const char* /*area*/,
                               const ZORString& /*exception*/) {}
};

/// What an export bridge may offer besides: its interface object is then one of this class too, as a
/// dynamic_cast tells.
class ZORBridgeInspectionInterface {
  public:
    virtual ~ZORBridgeInspectionInterface();
    /// Goes through a whole export, whose document is thrown away, and then tells the observer once of every
    /// object of the model for each subject area that the document would have, owners before their parts.
    /// The model is then as it was before. The option "File" has no effect.
    virtual void inspect(ZORModel& model, ZOROptionList& options, ZORLog& log,
                         ZORExportObserver& observer) = 0;
};

/// What an export bridge's library offers. Its one exported function, `get` + the library's name +
/// `Interface` with C linkage, gives back the one object of this class, which is never freed.
class ZORBridgeExportInterface {
  public:
    virtual ~ZORBridgeExportInterface();
    /// Writes the model. True when the export completed; failures leave as ZORException. Afterwards the model
    /// is as it was before. `fileName` may be ignored by a bridge that takes its path from an option.
    virtual bool run(const ZORString& fileName, ZORModel& model, ZOROptionList& options, ZORLog& log) = 0;
    /// Replaces what is in the list by the bridge's options, set to their defaults.
    virtual void getOptionList(ZOROptionList& list) = 0;
    virtual void getSpecification(const ZORString& bridgeId, ZORBridgeSpecification& specification) = 0;
    /// The base name of the document that tells what is written for which part of a model.
    virtual ZORString getMappingSpecificationXmlFile() = 0;
};
