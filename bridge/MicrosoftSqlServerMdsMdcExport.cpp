// The run driver: from the options to the finished document, and the way back to the untouched model.

#include "MicrosoftSqlServerMdsMdcExport.h"

#include "Inspection.h"
#include "Preprocessing.h"
#include "QLT_SQMDC.h"
#include "Stereotypes.h"

namespace {

bool hasSeveralCatalogs(const ZORModel& model) {
    int catalogs = 0;
    for (const ZORPackage* child : model.getChildPackages()) {
        catalogs += child->getElementType() == ZOR_DATABASE_CATALOG ? 1 : 0;
    }
    return catalogs > 1;
}

MDCModelView readModelView(const ZOROptionList& options) {
    const ZORString value = options.getValue("Model");
    if (value == QLT_SQMDC::BP_MODEL_ENUM_ERD.getText()) {
        return MODEL_VIEW_ERD;
    }
    if (value == QLT_SQMDC::BP_MODEL_ENUM_DBM.getText()) {
        return MODEL_VIEW_DBM;
    }
    if (value == QLT_SQMDC::BP_MODEL_ENUM_ERD_AND_DBM.getText()) {
        return MODEL_VIEW_ERD_AND_DBM;
    }
    return MODEL_VIEW_UML;
}

MDCUML13Support readUML13Support(const ZOROptionList& options) {
    const ZORString value = options.getValue("UML 1.3 Support");
    if (value == QLT_SQMDC::BP_UML_1_3_SUPPORT_ENUM_PARTIAL.getText()) {
        return UML_1_3_PARTIAL;
    }
    if (value == QLT_SQMDC::BP_UML_1_3_SUPPORT_ENUM_DISABLED.getText()) {
        return UML_1_3_DISABLED;
    }
    return UML_1_3_FULL;
}

/// The value of the option that was generated from the catalogue's file literal.
ZORString readOutputPath(const ZOROptionList& options) {
    for (const ZOROption* option : options.getOptions()) {
        if (option->getName() == QLT_SQMDC::BP_FILE.getKey()) {
            return option->getValue();
        }
    }
    // A host that drops the option gets the message that the file cannot be opened.
    return {};
}

/// For runs whose document nobody reads.
class NullSink : public ZORSink {
  public:
    void write(const char* /*bytes*/, std::size_t /*count*/) override {}
};

}  // namespace

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

Bridge::ZORMicrosoftSqlServerMdsMdcExportBridge(ZORLog* log)
    : log_(log), stereotypes_(std::make_unique<StereotypeHashtable>(50)) {}

Bridge::~ZORMicrosoftSqlServerMdsMdcExportBridge() {
    try {
        cleanup();
    } catch (...) {
        // Only closing the file can fail; `run` has told so already.
    }
}

bool Bridge::run(ZORModel* model, ZOROptionList* options) {
    startRun(model, *options);
    exportModel(*options, nullptr);
    return true;
}

void Bridge::inspect(ZORModel* model, ZOROptionList* options, ZORExportObserver* observer) {
    startRun(model, *options);
    inspection_ = std::make_unique<Inspection>(modelView_, dbmTypeSet_.typeTable != nullptr);
    exportModel(*options, std::make_unique<NullSink>());
    inspection_->report(*observer);
}

void Bridge::startRun(ZORModel* model, const ZOROptionList& options) {
    nextId_ = 1;
    model_ = model;
    if (hasSeveralCatalogs(*model)) {
        QLT_SQMDC::MDC_E_MULTIPLE_CATALOGS_DETECTED.log(*log_);
    }
    readOptions(options);
}

void Bridge::exportModel(const ZOROptionList& options, std::unique_ptr<ZORSink> sink) {
    try {
        if (sink != nullptr) {
            file_.open(std::move(sink));
        } else {
            openOutput(options);
        }
        PreprocessOperation().run(this);
        printTransfer();
        if (getConversionFailureCount() > 0) {
            QLCM::ICU_CONVERSION_ERROR.log(*log_, ZORString(getConversionFailureCount()),
                                           ZORString(getFailedTextCount()));
        }
        if (inspection_ != nullptr) {
            inspection_->conclude(*model_);
        }
        cleanup();
    } catch (...) {
        try {
            cleanup();
        } catch (...) {
            // What went wrong first is what the host is told.
        }
        throw;
    }
}

void Bridge::openOutput(const ZOROptionList& options) {
    file_.setPath(readOutputPath(options));
    if (!file_.openForOutput()) {
        QLT_SQMDC::MDC_E_UNABLE_TO_OPEN_OUTPUT_FILE.throwException(file_.getPath());
    }
}

void Bridge::readOptions(const ZOROptionList& options) {
    modelView_ = readModelView(options);
    msRepository_ = options.getValue("MS Repository") == BLIB::BOOLEAN_ENUM_VALUE_TRUE.getText();
    uml13Support_ = readUML13Support(options);
    erdTypeSet_.name = "XML Datatypes";
    if (modelView_ == MODEL_VIEW_ERD || modelView_ == MODEL_VIEW_ERD_AND_DBM) {
        const ZORString version = options.getValue("ERD TypeSet Version");
        const ZORString name = options.getValue("ERD TypeSet Name");
        dtmInit(erdTypeSet_, ERD, options.getValue("ERD TypeSet"), name, version);
    }
    dbmTypeSet_.name = "SQL Server 7.x";
    if (modelView_ == MODEL_VIEW_DBM || modelView_ == MODEL_VIEW_ERD_AND_DBM) {
        const ZORString version = options.getValue("DBM TypeSet Version");
        const ZORString name = options.getValue("DBM TypeSet Name");
        dtmInit(dbmTypeSet_, DBM, options.getValue("DBM TypeSet"), name, version);
    }
    // The unit's first content is the name of the option that holds the unit.
    indentationUnit_ = options.getValue(indentationUnit_);
}

void Bridge::noteWritten(const ZORObject* object, const ZORString& tag) const {
    inspection_->noteWritten(object, tag);
}

bool Bridge::leaveOut(const ZORObject* object, MDCSubjectArea area, const char* reason,
                      const ZORModelObject* other) const {
    if (inspection_ != nullptr) {
        inspection_->noteLeftOut(object, area, {reason, other, nullptr});
    }
    return false;
}

bool Bridge::leaveOutWith(const ZORObject* object, MDCSubjectArea area, const char* reason,
                          const ZORModelObject* cause) const {
    if (inspection_ != nullptr) {
        inspection_->noteLeftOut(object, area, {reason, cause, cause});
    }
    return false;
}

void Bridge::cleanup() {
    std::exception_ptr closeFailure;
    try {
        file_.close();
    } catch (...) {
        closeFailure = std::current_exception();
    }
    // What was added last goes first, so that every list and registration passes through the states it came
    // from.
    for (std::size_t i = auxiliary_.size(); i > 0; --i) {
        ZORModelObject* object = auxiliary_[i - 1];
        releaseUserData(object);
        object->setOwner(nullptr);
        delete object;
    }
    auxiliary_.clear();
    stereotypes_->freeAll();
    if (model_ != nullptr && userData_.inUse() > 0) {
        ResetGeneralPointerOperation reset(userData_);
        void* context = nullptr;
        model_->_depthTraversal(reset, context);
    }
    if (closeFailure) {
        std::rethrow_exception(closeFailure);
    }
}

void Bridge::cleanup(ZORStringHashtable& table) {
    for (std::size_t i = 0; i < table.size(); ++i) {
        delete table[i];
    }
    table.clear();
    nameCounters_.clear();
}
