#include "ReaderFuzzing.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include "DocumentCheck.h"
#include "ExportInterface.h"
#include "ModelDump.h"
#include "ZORFile.h"
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

std::string exportModel(ZORModel& model, const char* view) {
    ZORBridgeExportInterface& bridge = *getZORMicrosoftSqlServerMdsMdcExportInterface();
    ZOROptionList options;
    bridge.getOptionList(options);
    options.setValue("Model", view);
    options.setValue("File", "memory");
    std::string document;
    ZORFile::setSinkOpener([&](const ZORString&) { return std::make_unique<StringSink>(document); });
    SilentLog log;
    bridge.run("", model, options, log);
    return document;
}

void checkDocument(const std::string& document, const char* view) {
    oimcheck::DocumentCheck check([&](const oimcheck::Finding& finding) {
        if (finding.severity == oimcheck::Finding::Severity::ERROR) {
            report("a wrong document:", finding.text + "\nin line " + std::to_string(finding.line) +
                                            " of the view " + view + ":\n" + document);
        }
    });
    check.feed(document.data(), document.size());
    check.finish();
}

/// The name goes into the document as it is, so programs refuse such names.
bool hasWritableName(const ZORModel& model) {
    const std::string_view name = model.getName().view();
    return name.find_first_of("\"&<") == std::string_view::npos;
}

}  // namespace

void readAndExport(const readers::Reader& reader, const std::uint8_t* data, std::size_t size) {
    const std::unique_ptr<ZORModel> model =
        readModel(reader, std::string(reinterpret_cast<const char*>(data), size));
    if (model == nullptr || !checkModel(*model).empty() || !hasWritableName(*model)) {
        return;
    }
    const std::string before = support::dumpModel(*model);
    for (const char* view : {"UML", "ERD", "DBM", "ERD and DBM"}) {
        checkDocument(exportModel(*model, view), view);
        if (const std::string after = support::dumpModel(*model); after != before) {
            report("the export changed the model:", before + "\nis now\n" + after);
        }
    }
}

}  // namespace fuzz
