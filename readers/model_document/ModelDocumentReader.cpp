#include "ModelDocumentReader.h"

#include "Builder.h"
#include "Refusal.h"
#include "SimdjsonStart.h"

namespace readers {

namespace {

constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";

std::unique_ptr<ZORModel> buildModel(std::string_view text, ReadContext& context) {
    startSimdjson();
    try {
        return document::Builder(text, context).build();
    } catch (const document::Refusal& refusal) {
        throw document::explain(text, refusal);
    } catch (const simdjson::simdjson_error& error) {
        throw document::explainSyntax(text, error.what());
    }
}

std::string_view withoutByteOrderMark(std::string_view text) {
    return text.starts_with(BYTE_ORDER_MARK) ? text.substr(BYTE_ORDER_MARK.size()) : text;
}

class ModelDocumentReader : public Reader {
  public:
    const ReaderDescription& describe() const override {
        static const ReaderDescription description = {
            .name = "json",
            .title = "Model document",
            .recognition =
                "a JSON object that holds \"oim-source-model\", or a name that ends in .model.json",
            .naturalView = "uml",
            .databaseType = {},
            .takesSelection = false,
            .options = {},
        };
        return description;
    }

    bool identify(const Source& source) const override {
        const std::string_view head = withoutByteOrderMark(source.head());
        const std::size_t start = head.find_first_not_of(" \t\r\n");
        const bool isObject = start != std::string_view::npos && head[start] == '{';
        return (isObject && head.find("\"oim-source-model\"") != std::string_view::npos) ||
               source.name().ends_with(".model.json");
    }

    std::unique_ptr<ZORModel> read(const Source& source, const ReadRequest& request,
                                   ReadContext& context) const override {
        const std::string content = source.content(document::DocumentText::PADDING);
        std::unique_ptr<ZORModel> model = buildModel(withoutByteOrderMark(content), context);
        if (!request.modelName.empty()) {
            model->setName(ZORString(request.modelName));
        }
        return model;
    }
};

}  // namespace

const Reader& modelDocumentReader() {
    static const ModelDocumentReader reader;
    return reader;
}

}  // namespace readers
