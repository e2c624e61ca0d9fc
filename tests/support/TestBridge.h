// The bridge with its state open and its document in memory, for tests of single operations, and whole
// exports that write into memory. Test programs that include this link bridge_objects.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "CollectingLog.h"
#include "ExportInterface.h"
#include "MemorySink.h"
#include "MicrosoftSqlServerMdsMdcExport.h"
#include "Preprocessing.h"

namespace support {

/// The view's name as part of a test's name.
inline const char* viewName(MDCModelView view) {
    constexpr const char* NAMES[] = {"Uml", "Erd", "Dbm", "ErdAndDbm"};
    return NAMES[view];
}

/// Lives before the bridge that logs to it.
struct TestBridgeLog {
    CollectingLog events;
};

/// A bridge whose printers can be called one by one, without indentation unless a test sets one.
class TestBridge : private TestBridgeLog, public ZORMicrosoftSqlServerMdsMdcExportBridge {
    using Base = ZORMicrosoftSqlServerMdsMdcExportBridge;

  public:
    /// `model` may be null for a test that needs none, and outlives the bridge.
    explicit TestBridge(ZORModel* model, MDCModelView view = MODEL_VIEW_DBM) : Base(&events) {
        model_ = model;
        modelView_ = view;
        indentationUnit_.clear();
        file_.open(std::make_unique<MemorySink>(record_));
    }

    using Base::attributeState_;
    using Base::auxiliary_;
    using Base::currentIndentation_;
    using Base::dbmTypeSet_;
    using Base::erdTypeSet_;
    using Base::file_;
    using Base::indentationUnit_;
    using Base::model_;
    using Base::modelView_;
    using Base::msRepository_;
    using Base::nextId_;
    using Base::uml13Support_;
    using Base::userData_;

    void preprocess() { PreprocessOperation().run(this); }
    /// What was written since the last call.
    std::string text() {
        file_.flush();
        std::string written = record_->text();
        record_->writes.clear();
        return written;
    }
    CollectingLog& log() { return events; }

  private:
    std::shared_ptr<SinkRecord> record_ = std::make_shared<SinkRecord>();
};

/// The bridge's options at their defaults, with some values set: `options({{"Model", "DBM"}})`.
class TestOptions : public ZOROptionList {
  public:
    TestOptions(std::initializer_list<std::pair<const char*, const char*>> values = {}) {
        getZORMicrosoftSqlServerMdsMdcExportInterface()->getOptionList(*this);
        for (const auto& [name, value] : values) {
            // Without the check: a bridge has to bear values that no host lets through.
            find(name)->setValue(value);
        }
    }
};

/// Lets exports write into memory instead of the file that their option names, as long as it lives.
class MemoryFiles {
  public:
    MemoryFiles() {
        ZORFile::setSinkOpener(
            [record = record_](const ZORString&) { return std::make_unique<MemorySink>(record); });
    }
    ~MemoryFiles() { ZORFile::setSinkOpener({}); }
    MemoryFiles(const MemoryFiles&) = delete;
    MemoryFiles& operator=(const MemoryFiles&) = delete;

    std::string text() const { return record_->text(); }

  private:
    std::shared_ptr<SinkRecord> record_ = std::make_shared<SinkRecord>();
};

/// A whole export through the plug-in's interface: the document.
inline std::string exportModel(ZORModel& model, ZOROptionList& options, ZORLog& log) {
    const MemoryFiles files;
    getZORMicrosoftSqlServerMdsMdcExportInterface()->run({}, model, options, log);
    return files.text();
}
inline std::string exportModel(ZORModel& model,
                               std::initializer_list<std::pair<const char*, const char*>> values) {
    TestOptions options(values);
    CollectingLog log;
    return exportModel(model, options, log);
}

/// The part of a text from the first `begin` on up to the first `end` behind it, both included; empty when
/// there is none. For the element that a test is about.
inline std::string part(const std::string& text, const std::string& begin, const std::string& end) {
    const std::size_t from = text.find(begin);
    const std::size_t to = from == std::string::npos ? from : text.find(end, from + begin.size());
    return to == std::string::npos ? std::string() : text.substr(from, to + end.size() - from);
}

/// How often `word` stands in the text.
inline std::size_t count(const std::string& text, const std::string& word) {
    std::size_t times = 0;
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + word.size())) {
        ++times;
    }
    return times;
}

}  // namespace support
