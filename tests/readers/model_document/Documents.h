// Documents for tests, and what comes of reading them.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "Reader.h"

namespace documents {

/// Keeps what a reader reports. Interrupts it at the n-th report of progress when that is not 0.
class RecordingContext : public readers::ReadContext {
  public:
    void warn(const std::string& where, const std::string& text) override {
        warnings.push_back(where + ": " + text);
    }
    void progress(std::uint64_t objects) override;

    std::vector<std::string> warnings;
    std::vector<std::uint64_t> reports;
    std::size_t interruptAt = 0;
};

/// The model of a document. What the reader throws passes through.
std::unique_ptr<ZORModel> read(const std::string& text);
/// The message with which a document is refused; a failed test and the empty text when it is not.
std::string refusalOf(const std::string& text);
/// What goes with that message.
std::string hintOf(const std::string& text);

/// A document whose model has these keys, which begin in line 3, column 1.
std::string withModel(const std::string& keys);
/// A document with an integer type "t" and a package with these elements, which begin in line 5, column 1.
std::string withElements(const std::string& elements);
/// A document in which packages are nested so deep.
std::string withNestedPackages(int levels);

/// A document that is refused, and the whole message.
struct Row {
    const char* name;
    std::string text;
    std::string message;
};
void PrintTo(const Row& row, std::ostream* out);
std::string nameOf(const testing::TestParamInfo<Row>& row);

/// The first object of a model's first package.
template <typename Element>
Element& firstElement(const ZORModel& model) {
    auto* package = static_cast<ZORDesignPackage*>(model.getChildPackages()[0]);
    return dynamic_cast<Element&>(*package->getModelElements()[0]);
}

/// The text of a file of the project, by its path in the project.
std::string projectFile(const std::string& path);

}  // namespace documents
