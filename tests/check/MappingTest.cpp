// What the check accepts and what the mapping document says that the bridge writes are the same.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libxml/parser.h>

#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <stdexcept>

#include "OimGrammar.h"

namespace {

using oimcheck::OimGrammar;

/// What the mapping document says of an element, whichever objects it is written for.
struct MappedElement {
    struct Values {
        std::set<std::string> words;
        bool isInteger = false;
        bool isFree = false;  ///< any text, for some of the objects at least
        int always = 0;       ///< so many of the element's descriptions say that it is always there
    };
    int descriptions = 0;
    std::map<std::string, Values> attributes;
    std::set<std::string> children;
    std::set<std::string> references;
};

class MappingDocument {
  public:
    explicit MappingDocument(const char* path)
        : document_(xmlReadFile(path, nullptr, XML_PARSE_NONET), xmlFreeDoc) {
        if (document_ == nullptr) {
            throw std::runtime_error(std::string(path) + " cannot be read");
        }
        const xmlNode* root = xmlDocGetRootElement(document_.get());
        forEach(root, "group", [&](const xmlNode* group) { groups_[attributeOf(group, "name")] = group; });
        forEach(root, "words", [&](const xmlNode* list) {
            forEach(list, "word",
                    [&](const xmlNode* word) { words_[attributeOf(list, "name")].insert(contentOf(word)); });
        });
        forEach(root, "view", [&](const xmlNode* view) {
            forEach(view, "element", [&](const xmlNode* element) {
                describe(elements[attributeOf(element, "name")], element);
            });
        });
    }

    std::map<std::string, MappedElement> elements;

  private:
    template <typename Take>
    static void forEach(const xmlNode* parent, std::string_view name, const Take& take) {
        for (const xmlNode* child = parent->children; child != nullptr; child = child->next) {
            if (child->type == XML_ELEMENT_NODE && reinterpret_cast<const char*>(child->name) == name) {
                take(child);
            }
        }
    }
    static std::string toText(xmlChar* text) {
        const std::unique_ptr<xmlChar, void (*)(void*)> owned(text, xmlFree);
        return text == nullptr ? std::string() : reinterpret_cast<const char*>(text);
    }
    static std::string attributeOf(const xmlNode* node, const char* name) {
        return toText(xmlGetProp(node, reinterpret_cast<const xmlChar*>(name)));
    }
    static std::string contentOf(const xmlNode* node) { return toText(xmlNodeGetContent(node)); }

    void describe(MappedElement& element, const xmlNode* node) {
        ++element.descriptions;
        add(element, node);
    }

    void add(MappedElement& element, const xmlNode* node) {
        forEach(node, "use",
                [&](const xmlNode* use) { add(element, groups_.at(attributeOf(use, "group"))); });
        forEach(node, "attribute", [&](const xmlNode* attribute) { addAttribute(element, attribute); });
        forEach(node, "association", [&](const xmlNode* association) {
            const std::string name = attributeOf(association, "name");
            element.children.insert(name);
            describe(elements[name], association);
        });
        forEach(node, "holds",
                [&](const xmlNode* held) { element.children.insert(attributeOf(held, "element")); });
        forEach(node, "refers", [&](const xmlNode* reference) {
            std::istringstream tags(attributeOf(reference, "element"));
            for (std::string tag; tags >> tag;) {
                element.references.insert(tag);
            }
        });
    }

    void addAttribute(MappedElement& element, const xmlNode* node) {
        MappedElement::Values& values = element.attributes[attributeOf(node, "name")];
        values.always += attributeOf(node, "always") == "yes" ? 1 : 0;
        if (const std::string list = attributeOf(node, "words"); !list.empty()) {
            values.words.insert(words_.at(list).begin(), words_.at(list).end());
        } else if (const std::string value = attributeOf(node, "value"); !value.empty()) {
            values.words.insert(value);
        } else if (attributeOf(node, "type") == "number") {
            values.isInteger = true;
        } else {
            values.isFree = true;
        }
    }

    std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> document_;
    std::map<std::string, const xmlNode*> groups_;
    std::map<std::string, std::set<std::string>> words_;
};

std::set<std::string> namesOf(const std::vector<std::uint16_t>& numbers) {
    std::set<std::string> names;
    for (const std::uint16_t number : numbers) {
        names.insert(OimGrammar::instance()[number].name);
    }
    return names;
}

void expectSameValues(const oimcheck::AttributeRule& rule, const MappedElement::Values& mapped) {
    if (mapped.isFree || mapped.isInteger) {
        EXPECT_EQ(rule.isInteger, mapped.isInteger);
        EXPECT_THAT(rule.words, testing::IsEmpty());
        return;
    }
    for (const std::string& word : mapped.words) {
        EXPECT_TRUE(rule.permits(word)) << word;
    }
    for (const std::string& word : rule.words) {
        EXPECT_THAT(mapped.words, testing::Contains(word));
    }
}

class MappingTest : public testing::Test {
  protected:
    const MappingDocument mapping{MAPPING_DOCUMENT};
    const OimGrammar& grammar = OimGrammar::instance();
};

TEST_F(MappingTest, TheCheckKnowsTheElementsThatAreMappedAndNoOthers) {
    std::set<std::string> known;
    for (std::size_t i = 0; i < grammar.size(); ++i) {
        known.insert(grammar[static_cast<std::uint16_t>(i)].name);
    }
    std::set<std::string> mapped;
    for (const auto& [name, element] : mapping.elements) {
        mapped.insert(name);
    }
    EXPECT_EQ(known, mapped);
}

TEST_F(MappingTest, TheCheckPermitsWhatIsMappedAndNothingElseAndAsksForWhatIsAlwaysThere) {
    for (const auto& [name, element] : mapping.elements) {
        SCOPED_TRACE(name);
        ASSERT_NE(grammar.find(name), OimGrammar::UNKNOWN);
        const oimcheck::ElementRule& rule = grammar[grammar.find(name)];
        EXPECT_EQ(namesOf(rule.children), element.children);
        EXPECT_EQ(namesOf(rule.references), element.references);
        std::set<std::string> permitted;
        for (const oimcheck::AttributeRule& attribute : rule.attributes) {
            permitted.insert(attribute.name);
        }
        std::set<std::string> mapped;
        for (const auto& [attribute, values] : element.attributes) {
            SCOPED_TRACE(attribute);
            if (attribute != "oim:id") {  // a matter of the element's kind
                mapped.insert(attribute);
                ASSERT_NE(rule.findAttribute(attribute), nullptr);
                EXPECT_EQ(rule.findAttribute(attribute)->isRequired, values.always == element.descriptions);
                expectSameValues(*rule.findAttribute(attribute), values);
            }
        }
        EXPECT_EQ(permitted, mapped);
        const bool isNumbered = rule.kind == oimcheck::ElementKind::OBJECT ||
                                rule.kind == oimcheck::ElementKind::NUMBERED_ASSOCIATION;
        EXPECT_EQ(isNumbered, element.attributes.count("oim:id") == 1);
    }
}

}  // namespace
