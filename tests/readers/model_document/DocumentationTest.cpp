// Whether page, schema and example document say what the reader does.
#include <gmock/gmock.h>
#include <simdjson.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <set>
#include <sstream>

#include "CollectingLog.h"
#include "DocumentationText.h"
#include "Documents.h"
#include "ZORManager.h"

namespace {

using documentation::allKinds;
using documentation::findField;
using documents::projectFile;
using readers::document::Family;
using readers::document::Field;
using readers::document::Kind;
using readers::document::kindsOf;
using readers::document::Shape;
using testing::ContainsRegex;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::UnorderedElementsAreArray;

constexpr const char* PAGE = "docs/model-document.md";
constexpr const char* SCHEMA = "docs/model-document.schema.json";

/// The text from behind a heading to the next one.
std::string section(const std::string& page, const std::string& heading) {
    const std::size_t start = page.find("\n" + heading + "\n");
    if (start == std::string::npos) {
        return {};
    }
    const std::size_t text = start + heading.size() + 2;
    return page.substr(text, page.find("\n#", text) - text);
}

std::string tableLines(const std::string& text) {
    std::istringstream lines(text);
    std::string table;
    for (std::string line; std::getline(lines, line);) {
        table += line.starts_with('|') ? line + "\n" : "";
    }
    return table;
}

/// The first fenced block of a language.
std::string codeBlock(const std::string& page, const std::string& language) {
    const std::string fence = "```" + language + "\n";
    const std::size_t start = page.find(fence) + fence.size();
    return page.substr(start, page.find("```", start) - start);
}

TEST(ModelDocumentPage, HasTheTablesOfTheReaderAndNoOthers) {
    const std::string page = projectFile(PAGE);
    std::string all;
    for (const auto& [heading, table] : documentation::pageTables()) {
        EXPECT_EQ(tableLines(section(page, heading)), table)
            << heading << " (model_document_docs page prints the tables)";
        all += table;
    }
    EXPECT_EQ(tableLines(page).size(), all.size());
}

TEST(ModelDocumentPage, NamesAllKindsWhereTheyAreChosen) {
    const std::string page = projectFile(PAGE);
    const std::pair<const char*, Family> choices[] = {
        {"### The model", Family::CHILDREN},
        {"### Types", Family::TYPES},
        {"### Packages", Family::ELEMENTS},
        {"### Keys", Family::KEYS},
        {"### Operations, procedures and triggers", Family::OPERATIONS},
    };
    for (const auto& [heading, family] : choices) {
        for (const auto& word : kindsOf(family).words) {
            EXPECT_THAT(section(page, heading), HasSubstr("\"" + std::string(word.text) + "\"`")) << heading;
        }
    }
}

TEST(ModelDocumentPage, ShowsADocumentThatIsRead) {
    const auto model = documents::read(codeBlock(projectFile(PAGE), "json"));
    EXPECT_EQ(model->getName(), "Garden");
}

/// What the bridge writes of a model in a view.
std::string exportView(ZORModel& model, const std::string& view) {
    const std::string path =
        testing::TempDir() + "model_document_page_" + std::to_string(::getpid()) + ".xml";
    const ZORBridge bridge = ZORBridgeManager(PLUGIN_FOLDER).load("MicrosoftSqlServerMdsMdcExport");
    ZOROptionList options;
    bridge.getOptionList(options);
    options.setValue("File", path.c_str());
    options.setValue("Model", view.c_str());
    support::CollectingLog log;
    bridge.run(model, options, log);
    std::ostringstream document;
    document << std::ifstream(path).rdbuf();
    std::remove(path.c_str());
    return document.str();
}

TEST(ModelDocumentPage, ShowsADocumentWhoseRelationshipIsInEveryView) {
    const auto model = documents::read(codeBlock(projectFile(PAGE), "json"));
    EXPECT_THAT(exportView(*model, "UML"), ContainsRegex("<uml:Association [^>]*name=\"grows in\""));
    EXPECT_THAT(exportView(*model, "ERD"), ContainsRegex("<erd:Relationship [^>]*name=\"grows in\""));
    EXPECT_THAT(exportView(*model, "DBM"), ContainsRegex("<dbm:ForeignKey [^>]*name=\"FK_PLANT_BED\""));
    EXPECT_THAT(exportView(*model, "DBM"), HasSubstr("<dbm:ReferentialConstraint"));
}

TEST(ModelDocumentPage, ShowsAMessageAsItIs) {
    std::string document = codeBlock(projectFile(PAGE), "json");
    const std::string good = R"("name": "bed", "type": "number")";
    const std::size_t place = document.find(good);
    ASSERT_NE(place, std::string::npos);
    document.replace(place, good.size(), R"("name": "bed", "type": "numbr")");
    EXPECT_EQ("oimbridge: error: garden.model.json: " + documents::refusalOf(document) + "\n",
              codeBlock(section(projectFile(PAGE), "### When something is wrong"), ""));
}

TEST(ModelDocumentSchema, IsThatOfTheReader) {
    EXPECT_EQ(projectFile(SCHEMA), documentation::schemaText()) << "model_document_docs schema prints it";
}

/// The schema as a JSON value, for tests that do not trust whoever wrote its text.
class ParsedSchema : public testing::Test {
  protected:
    ParsedSchema() : schema_(parser_.load(std::string(PROJECT_FOLDER) + "/" + SCHEMA)) {}

    simdjson::dom::element definition(const Kind& kind) const {
        return schema_["$defs"][documentation::definitionName(kind)];
    }
    static std::vector<std::string> textsOf(simdjson::dom::array list) {
        std::vector<std::string> texts;
        for (const std::string_view text : list) {
            texts.emplace_back(text);
        }
        return texts;
    }

  private:
    simdjson::dom::parser parser_;
    simdjson::dom::element schema_;
};

TEST_F(ParsedSchema, HasTheKeysOfEveryKind) {
    for (const Kind* kind : allKinds()) {
        std::vector<std::string> keys;
        std::vector<std::string> required;
        for (const Field& field : kind->fields) {
            keys.emplace_back(field.key);
            if (field.required && field.shape != Shape::KIND) {
                required.emplace_back(field.key);
            }
        }
        std::vector<std::string> schemaKeys;
        const simdjson::dom::object properties = definition(*kind)["properties"];
        for (const auto& [key, value] : properties) {
            schemaKeys.emplace_back(key);
        }
        EXPECT_THAT(schemaKeys, UnorderedElementsAreArray(keys)) << kind->noun;
        simdjson::dom::array schemaRequired;
        const bool hasRequired = definition(*kind)["required"].get(schemaRequired) == simdjson::SUCCESS;
        EXPECT_THAT(hasRequired ? textsOf(schemaRequired) : std::vector<std::string>(),
                    UnorderedElementsAreArray(required))
            << kind->noun;
        EXPECT_FALSE(definition(*kind)["additionalProperties"].get_bool().value()) << kind->noun;
    }
}

TEST_F(ParsedSchema, HasTheRangesAndWordsOfEveryField) {
    for (const Kind* kind : allKinds()) {
        for (const Field& field : kind->fields) {
            const simdjson::dom::element property = definition(*kind)["properties"][field.key];
            const std::string where = std::string(kind->noun) + ": " + std::string(field.key);
            if (field.shape == Shape::INTEGER && field.lowest != field.highest) {
                EXPECT_EQ(property["minimum"].get_int64().value(), field.lowest) << where;
                EXPECT_EQ(property["maximum"].get_int64().value(), field.highest) << where;
            }
            if ((field.shape == Shape::WORD || field.shape == Shape::WORDS) && field.words.size() > 1) {
                std::vector<std::string> words;
                for (const auto& word : field.words) {
                    words.emplace_back(word.text);
                }
                const simdjson::dom::array known =
                    field.shape == Shape::WORD ? property["enum"] : property["items"]["enum"];
                EXPECT_THAT(textsOf(known), ElementsAreArray(words)) << where;
            }
        }
    }
}

/// Which keys and words a document uses, by the kinds of its objects.
class Usage {
  public:
    explicit Usage(simdjson::dom::object document) { add(document, kindsOf(Family::DOCUMENT).kinds.front()); }
    /// Whether a kind or another one of its family uses it.
    bool hasInFamily(const Kind& kind, const std::string& what) const {
        const std::vector<Kind>& kinds = readers::document::familyOf(kind).kinds;
        return std::any_of(kinds.begin(), kinds.end(), [&](const Kind& other) {
            return used_.count({other.noun, what}) != 0;
        });
    }
    bool hasWord(const Field& field, std::string_view word) const {
        return words_.count({field.words.data(), std::string(word)}) != 0;
    }
    bool hasAnywhere(const std::string& what) const { return anywhere_.count(what) != 0; }

  private:
    void add(simdjson::dom::object object, const Kind& kind) {
        for (const auto& [key, value] : object) {
            const Field* field = findField(kind, key);
            if (field == nullptr) {
                continue;
            }
            note(kind, std::string(key));
            if (field->shape == Shape::WORD) {
                words_.emplace(field->words.data(), value.get_string().value());
            } else if (field->shape == Shape::WORDS) {
                addWords(*field, value);
            } else if (field->shape == Shape::OBJECT) {
                add(value, kindsOf(field->family).kinds.front());
            } else if (field->shape == Shape::OBJECTS) {
                addList(value, field->family);
            }
        }
    }
    void addWords(const Field& field, simdjson::dom::array words) {
        for (const std::string_view word : words) {
            words_.emplace(field.words.data(), word);
        }
    }
    void addList(simdjson::dom::array objects, Family family) {
        for (const simdjson::dom::object object : objects) {
            const std::vector<Kind>& kinds = kindsOf(family).kinds;
            std::string_view word;
            const bool isNamed = object["kind"].get(word) == simdjson::SUCCESS;
            for (const Kind& kind : kinds) {
                if (isNamed ? kind.word == word : &kind == &kinds.front()) {
                    add(object, kind);
                }
            }
        }
    }
    void note(const Kind& kind, const std::string& what) {
        used_.emplace(kind.noun, what);
        anywhere_.insert(what);
    }

    std::set<std::pair<std::string_view, std::string>> used_;
    std::set<std::string> anywhere_;
    /// By the enumeration, which several keys may share.
    std::set<std::pair<const readers::document::Word*, std::string>> words_;
};

TEST(EverythingDocument, UsesEveryKeyAndWord) {
    simdjson::dom::parser parser;
    const simdjson::dom::element document =
        parser.load(std::string(PROJECT_FOLDER) + "/examples/everything.model.json");
    const Usage usage(document);
    for (const Kind* kind : allKinds()) {
        for (const Field& field : kind->fields) {
            const std::string key(field.key);
            // What all objects have in common, or all kinds of a list, need not be shown for each.
            EXPECT_TRUE(documentation::isCommon(*kind, field) ? usage.hasAnywhere(key)
                                                              : usage.hasInFamily(*kind, key))
                << kind->noun << ": " << key;
            const bool hasWords = field.shape == Shape::WORD || field.shape == Shape::WORDS;
            for (std::size_t i = 0; hasWords && i < field.words.size(); ++i) {
                EXPECT_TRUE(usage.hasWord(field, field.words[i].text)) << key << ": " << field.words[i].text;
            }
        }
    }
}

}  // namespace
