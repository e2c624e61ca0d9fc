// Small files of each form of XMI, put together from what a test is about.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Reader.h"
#include "ZOR.h"

namespace xmi_test {

/// XMI 2 as Eclipse writes it: a model "m" with the elements in it.
std::string eclipse(const std::string& elements, const std::string& besideTheModel = {});
/// XMI 2 as the OMG has it: the same, in its namespaces and without a known exporter.
std::string omg(const std::string& elements, const std::string& besideTheModel = {});
/// The same from Enterprise Architect; `extension` is what stands in its extension.
std::string enterpriseArchitect(const std::string& elements, const std::string& extension = {});
/// XMI 1.2 from no particular program: a model "m" with the elements in it.
std::string xmi12(const std::string& elements, const std::string& besideTheModel = {});
/// The same from Umbrello.
std::string umbrello(const std::string& elements, const std::string& extension = {});
/// The same from PlantUML, in XMI 1.1.
std::string plantUml(const std::string& elements);
/// XMI 1.0 with its dotted names.
std::string xmi10(const std::string& elements);

/// In XMI 2, a class with what it holds; its id is its name with "_" in front.
std::string cls(const std::string& name, const std::string& content = {}, const std::string& attributes = {});
/// In XMI 1.2; its id is its name.
std::string cls12(const std::string& name, const std::string& content = {},
                  const std::string& attributes = {});
/// The data type "String" with the id "_String".
std::string stringType();

/// What became of a file.
struct Result {
    std::unique_ptr<ZORModel> model;
    std::vector<std::string> warnings;  ///< "where: text"
    readers::LossReport losses;

    std::string outline() const;
    /// "kind: where (detail)", a line each.
    std::string lossLines() const;
    std::string warningLines() const;
};

/// Reads the text with the reader and exports it in every view; a model that the check of models refuses, or
/// a document at fault, fails the test. Throws what the reader throws.
Result read(const std::string& text, const std::string& name = "file.uml", const std::string& modelName = {});

/// A fact and the file that shows it.
struct Case {
    const char* fact;
    std::string file;
    std::string expected;
};
/// For messages of the test framework.
void PrintTo(const Case& shown, std::ostream* out);
/// Names a parameterised test after its fact.
std::string caseName(const testing::TestParamInfo<Case>& info);

/// A whole text as a raw literal that begins on the line after its quotes.
inline std::string operator""_lines(const char* text, std::size_t length) {
    return std::string(text + 1, length - 1);
}

}  // namespace xmi_test
