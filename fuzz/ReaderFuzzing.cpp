#include "ReaderFuzzing.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "DocumentCheck.h"
#include "ExportInterface.h"
#include "ModelDump.h"
#include "ZORBridgeLib.h"
#include "ZORClock.h"
#include "ZORModelCheck.h"

namespace fuzz {
namespace {

[[noreturn]] void report(const char* what, const std::string& detail) {
    std::fprintf(stderr, "%s\n%s\n", what, detail.c_str());
    std::abort();
}

class SilentContext : public readers::ReadContext {
  public:
    void warn(const std::string& /*where*/, const std::string& /*text*/) override {}
    void progress(std::uint64_t /*objects*/) override {}
};

class SilentLog : public ZORLog {
  public:
    void log(const ZORLogEvent& /*event*/) override {}
};

class StringSink : public ZORSink {
  public:
    explicit StringSink(std::string& text) : text_(text) {}
    void write(const char* bytes, std::size_t count) override { text_.append(bytes, count); }

  private:
    std::string& text_;
};

std::unique_ptr<ZORModel> readModel(const readers::Reader& reader, std::string text) {
    SilentContext context;
    try {
        const readers::Source source = readers::Source::fromText("fuzzed", std::move(text));
        reader.identify(source);
        return reader.read(source, {}, context);
    } catch (const readers::SourceError& error) {
        if (error.kind() == readers::SourceError::Kind::INTERRUPTED || error.what()[0] == '\0') {
            report("an unlikely error:", error.what());
        }
        return nullptr;
    }
}

std::string exportModel(ZORModel& model, const std::map<std::string, std::string>& settings) {
    ZORBridgeExportInterface& bridge = *getZORMicrosoftSqlServerMdsMdcExportInterface();
    ZOROptionList options;
    bridge.getOptionList(options);
    options.setValue("File", "memory");
    for (const auto& [name, value] : settings) {
        options.setValue(std::string_view(name), std::string_view(value));
    }
    std::string document;
    ZORFile::setSinkOpener([&](const ZORString&) { return std::make_unique<StringSink>(document); });
    SilentLog log;
    bridge.run("", model, options, log);
    ZORFile::setSinkOpener({});
    return document;
}

void checkDocument(const std::string& document) {
    oimcheck::DocumentCheck check([&](const oimcheck::Finding& finding) {
        if (finding.severity == oimcheck::Finding::Severity::ERROR) {
            report("a wrong document:",
                   finding.text + "\nin line " + std::to_string(finding.line) + " of\n" + document);
        }
    });
    check.feed(document.data(), document.size());
    check.finish();
}

/// Whether nothing keeps a program from writing the model: the name goes into the document as it is, so
/// programs refuse names that are not fit for one.
bool isSound(ZORModel& model, ZORViewsToCheck views) {
    return checkModel(model, 1, views).empty() &&
           ZORXMLWriter().getXMLText(model.getName()) == model.getName();
}

}  // namespace

void exportSound(ZORModel& model, const std::map<std::string, std::string>& settings) {
    const auto view = settings.find("Model");
    const bool isUml = view == settings.end() || view->second == "UML";
    if (!isSound(model, isUml ? ZORViewsToCheck::ALL : ZORViewsToCheck::ALL_BUT_UML)) {
        return;
    }
    ZORClock::setFixed(1181645637);  // documents tell the time
    const std::string before = support::dumpModel(model);
    const std::string document = exportModel(model, settings);
    if (const std::string after = support::dumpModel(model); after != before) {
        report("the export changed the model:", before + "\nis now\n" + after);
    }
    checkDocument(document);
    if (const std::string again = exportModel(model, settings); again != document) {
        report("a second export differs:", document + "\nand then\n" + again);
    }
}

void readAndExport(const readers::Reader& reader, const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    if (const std::unique_ptr<ZORModel> model = readModel(reader, text)) {
        for (const char* view : {"UML", "ERD", "DBM", "ERD and DBM"}) {
            exportSound(*model, {{"Model", view}});
        }
    }
}

}  // namespace fuzz
