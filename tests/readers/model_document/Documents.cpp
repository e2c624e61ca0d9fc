#include "Documents.h"

#include <fstream>
#include <sstream>

#include "model_document/ModelDocumentReader.h"

namespace documents {

namespace {

using readers::Source;
using readers::SourceError;

SourceError errorOf(const std::string& text) {
    try {
        read(text);
    } catch (const SourceError& error) {
        EXPECT_EQ(error.kind(), SourceError::Kind::CANNOT_READ);
        return error;
    }
    ADD_FAILURE() << "accepted: " << text.substr(0, 1000);
    return {SourceError::Kind::CANNOT_READ, ""};
}

}  // namespace

void RecordingContext::progress(std::uint64_t objects) {
    reports.push_back(objects);
    if (reports.size() == interruptAt) {
        throw SourceError(SourceError::Kind::INTERRUPTED, "interrupted");
    }
}

std::unique_ptr<ZORModel> read(const std::string& text) {
    RecordingContext context;
    return readers::modelDocumentReader().read(Source::fromText("document", text), {}, context);
}

std::string refusalOf(const std::string& text) {
    return errorOf(text).what();
}

std::string hintOf(const std::string& text) {
    return errorOf(text).hint();
}

std::string withModel(const std::string& keys) {
    return "{\n\"format\": \"oim-source-model\", \"version\": 1, \"model\": {\n" + keys + "\n}}\n";
}

std::string withElements(const std::string& elements) {
    return withModel(
        "\"types\": [{\"kind\": \"concrete\", \"id\": \"t\"}],\n"
        "\"children\": [{\"kind\": \"package\", \"elements\": [\n" +
        elements + "\n]}]");
}

std::string withNestedPackages(int levels) {
    std::string head = "\"children\": [{\"kind\": \"package\", \"name\": \"level 1\"";
    std::string tail = "}]";
    for (int level = 2; level <= levels; ++level) {
        head += ", \"packages\": [{\"name\": \"level " + std::to_string(level) + '"';
        tail += "}]";
    }
    return withModel(head + tail);
}

void PrintTo(const Row& row, std::ostream* out) {
    *out << row.name << ": " << row.text;
}

std::string nameOf(const testing::TestParamInfo<Row>& row) {
    return row.param.name;
}

std::string projectFile(const std::string& path) {
    std::ifstream file(std::string(PROJECT_FOLDER) + "/" + path, std::ios::binary);
    EXPECT_TRUE(file) << path << " is missing";
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

}  // namespace documents
