#include "Exporter.h"

#include <algorithm>
#include <stdexcept>

#include "Memory.h"

namespace bench {
namespace {

class FailingLog : public ZORLog {
  public:
    void log(const ZORLogEvent& event) override {
        throw std::runtime_error(std::string("the export has something to say: ") + event.getText().c_str());
    }
};

/// Takes everything, keeps nothing, and looks at the memory in use.
class ProbingSink : public ZORSink {
  public:
    explicit ProbingSink(std::size_t& peak) : peak_(peak) {}
    void write(const char* /*bytes*/, std::size_t /*count*/) override {
        peak_ = std::max(peak_, allocatedBytes());
    }

  private:
    std::size_t& peak_;
};

}  // namespace

Exporter::Exporter() : bridge_(ZORBridgeManager().load("MicrosoftSqlServerMdsMdcExport")) {
    bridge_.getOptionList(options_);
    options_.setValue("Model", "DBM");
    options_.setValue("DBM TypeSet", "SQL Server 7.x");
}

void Exporter::run(ZORModel& model, const std::string& path) {
    FailingLog log;
    options_.setValue("File", path.c_str());
    // Past the manager's check of the model, which is no part of writing it and is measured on its own.
    bridge_.getInterface().run("", model, options_, log);
}

std::size_t measurePeakMemory(Exporter& exporter, ZORModel& model) {
    const std::size_t before = allocatedBytes();
    std::size_t peak = before;
    ZORFile::setSinkOpener([&](const ZORString&) { return std::make_unique<ProbingSink>(peak); });
    ZORFile::setFlushPolicy(ZORFlushPolicy::BUFFER_FULL);
    exporter.run(model, "nowhere");
    ZORFile::setSinkOpener({});
    return peak - before;
}

}  // namespace bench
