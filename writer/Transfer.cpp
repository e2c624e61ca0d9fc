// The transfer document: the declaration, the root with its namespaces, the header, and the subsystem that
// holds the views that were chosen.

#include <ctime>

#include "MicrosoftSqlServerMdsMdcExport.h"
#include "ZORClock.h"

namespace {

/// The version that documents name as their exporter's.
constexpr const char* EXPORTER_VERSION = "5.2.0 - Jun 12 2007 10:53:57";

// Where the Meta Data Coalition published the DTDs of the subject areas.
constexpr const char* OIM_DTD = "http://www.mdcinfo.com/oim/oim.dtd";
constexpr const char* UML_DTD = "http://www.mdcinfo.com/oim/uml.dtd";
constexpr const char* ERD_DTD = "http://www.mdcinfo.com/oim/erd.dtd";
constexpr const char* DTM_DTD = "http://www.mdcinfo.com/oim/dtm.dtd";
constexpr const char* DBM_DTD = "http://www.mdcinfo.com/oim/dbm.dtd";

}  // namespace

using Bridge = ZORMicrosoftSqlServerMdsMdcExportBridge;

void Bridge::printTransfer() {
    file_ << "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>";
    file_.endLine();
    printTransferRoot();
    printTransferHeader();
    // The name stands before the identifier, exactly as stored: it is part of the tag.
    startTag("uml:Subsystem name=\"" + model_->getName() + "\"", nullptr, 0, false, false);
    startTag("uml:NamespaceOwnedElement"_z, false);
    printTransferContent();
    endTag("uml:NamespaceOwnedElement"_z);
    endTag("uml:Subsystem"_z);
    endTag("oim:Transfer"_z);
}

void Bridge::printTransferRoot() {
    startTag("oim:Transfer"_z, true);
    propertyAttribute("xmlns:oim"_z, OIM_DTD);
    propertyAttribute("xmlns:uml"_z, UML_DTD);
    if (modelView_ == MODEL_VIEW_ERD || modelView_ == MODEL_VIEW_ERD_AND_DBM) {
        propertyAttribute("xmlns:erd"_z, ERD_DTD);
        if (erdTypeSet_.typeTable != nullptr) {
            propertyAttribute("xmlns:dtm"_z, DTM_DTD);
        }
    }
    if (modelView_ == MODEL_VIEW_DBM || modelView_ == MODEL_VIEW_ERD_AND_DBM) {
        propertyAttribute("xmlns:dbm"_z, DBM_DTD);
    }
    closeTag(false);
}

void Bridge::printTransferHeader() {
    const std::tm now = ZORClock::now();
    char text[21];
    if (std::strftime(text, sizeof text, "%b %d %Y %H:%M:%S", &now) == 0) {
        text[0] = '\0';  // a month's name in the process's locale may be too long
    }
    startTag("oim:TransferHeader"_z, true);
    propertyAttribute("Exporter"_z, "Tarvolane");
    propertyAttribute("ExporterVersion"_z, EXPORTER_VERSION);
    propertyAttribute("TransferDateTime"_z, text);
    closeTag(true);
}

void Bridge::printTransferContent() {
    if (modelView_ == MODEL_VIEW_UML) {
        printUMLModel(model_);
    }
    if (modelView_ == MODEL_VIEW_ERD || modelView_ == MODEL_VIEW_ERD_AND_DBM) {
        printERDModel(model_);
        printDTMTypeSet("dtm:TypeSet", "dtm:TypeSetTypes", "erd:DataType", erdTypeSet_);
    }
    if (modelView_ == MODEL_VIEW_DBM || modelView_ == MODEL_VIEW_ERD_AND_DBM) {
        printDBMModel(model_);
        printDTMTypeSet("dbm:ColumnTypeSet", "dbm:ColumnTypeSetColumnTypes", "dbm:ColumnType", dbmTypeSet_);
    }
}
