#include "Export.h"

#include <cstdio>
#include <stdexcept>

#include "Case.h"
#include "Reader.h"
#include "model_document/ModelDocumentWriter.h"

namespace cases {

namespace {

class LoggingContext : public readers::ReadContext {
  public:
    void warn(const std::string& where, const std::string& text) override {
        warnings_ += "warning: " + where + ": " + text + "\n";
    }
    void progress(std::uint64_t /*objects*/) override {}

    std::string log() const {
        std::string text = warnings_;
        for (const readers::LossReport::Item& item : losses.items()) {
            text += "not carried over (" + item.kind + "): " + item.where +
                    (item.detail.empty() ? "" : ": " + item.detail) + "\n";
        }
        return text;
    }

  private:
    std::string warnings_;
};

Reading read(const readers::Source& source, const std::string& modelName) {
    readers::ReadRequest request;
    request.modelName = modelName;
    LoggingContext context;
    for (const readers::Reader* reader : readers::allReaders()) {
        if (reader->identify(source)) {
            Reading reading{reader->read(source, request, context), {}};
            reading.log = context.log();
            return reading;
        }
    }
    throw std::runtime_error("no reader knows " + source.name());
}

}  // namespace

Reading readModel(const std::string& source, const std::string& modelName) {
    return read(readers::Source::fromFile(source), modelName);
}

std::string saveModel(const ZORModel& model) {
    std::string document;
    readers::writeModelDocument(model, [&](std::string_view portion) { document += portion; });
    return document;
}

std::unique_ptr<ZORModel> readSavedModel(const std::string& document) {
    return read(readers::Source::fromText("saved.model.json", document), {}).model;
}

std::string exportModel(ZORModel& model, const std::vector<std::pair<std::string, std::string>>& options,
                        const std::string& name, ZORLog& log) {
    const std::string path = ACTUAL_FOLDER "/" + name + ".xml";
    const ZORBridge bridge = ZORBridgeManager(PLUGIN_FOLDER).load("MicrosoftSqlServerMdsMdcExport");
    ZOROptionList list;
    bridge.getOptionList(list);
    list.setValue("File", path.c_str());
    for (const auto& [option, value] : options) {
        list.setValue(option.c_str(), value.c_str());
    }
    bridge.run(model, list, log);
    std::string document = readFile(path);
    std::remove(path.c_str());
    return document;
}

}  // namespace cases
