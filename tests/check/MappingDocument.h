// Reading the mapping document: what the bridge writes, description by description.
#pragma once

#include <libxml/parser.h>

#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace check_test {

/// What the mapping document says of an element that is written for one kind of object.
struct Description {
    struct Values {
        std::set<std::string> words;
        bool isInteger = false;
        bool isFree = false;  ///< any text
        bool isAlways = false;
    };
    struct Child {
        std::string name;
        std::vector<const Description*> descriptions;
        bool isAssociation;
        bool isAlways;
    };
    std::string name;
    std::map<std::string, Values> attributes;
    std::vector<Child> children;
    std::set<std::string> references;

    const Child* findChild(std::string_view child) const {
        for (const Child& candidate : children) {
            if (candidate.name == child) {
                return &candidate;
            }
        }
        return nullptr;
    }
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
                elements_.emplace(attributeOf(element, "name"), element);
            });
        });
        root_ = describe(elements_.find("oim:Transfer")->second);
    }

    const Description& root() const { return *root_; }

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

    const Description* describe(const xmlNode* node) {
        std::unique_ptr<Description>& description = descriptions_[node];
        if (description == nullptr) {
            description = std::make_unique<Description>();
            description->name = attributeOf(node, "name");
            add(*description, node);
        }
        return description.get();
    }

    void add(Description& element, const xmlNode* node) {
        forEach(node, "use",
                [&](const xmlNode* use) { add(element, groups_.at(attributeOf(use, "group"))); });
        forEach(node, "attribute", [&](const xmlNode* attribute) { addAttribute(element, attribute); });
        forEach(node, "association", [&](const xmlNode* association) {
            element.children.push_back({attributeOf(association, "name"),
                                        {describe(association)},
                                        true,
                                        attributeOf(association, "always") == "yes"});
        });
        forEach(node, "holds", [&](const xmlNode* held) { addHeld(element, held); });
        forEach(node, "refers", [&](const xmlNode* reference) {
            std::istringstream tags(attributeOf(reference, "element"));
            for (std::string tag; tags >> tag;) {
                element.references.insert(tag);
            }
        });
    }

    void addHeld(Description& element, const xmlNode* node) {
        const std::string name = attributeOf(node, "element");
        const std::string wanted = attributeOf(node, "as");
        Description::Child child{name, {}, false, false};
        const auto [first, last] = elements_.equal_range(name);
        for (auto it = first; it != last; ++it) {
            if (wanted.empty() || attributeOf(it->second, "as") == wanted) {
                child.descriptions.push_back(describe(it->second));
            }
        }
        if (child.descriptions.empty()) {
            throw std::runtime_error("the mapping document does not describe " + name + " " + wanted);
        }
        element.children.push_back(std::move(child));
    }

    void addAttribute(Description& element, const xmlNode* node) {
        Description::Values& values = element.attributes[attributeOf(node, "name")];
        values.isAlways = attributeOf(node, "always") == "yes";
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
    std::multimap<std::string, const xmlNode*> elements_;
    std::map<const xmlNode*, std::unique_ptr<Description>> descriptions_;
    const Description* root_ = nullptr;
};

}  // namespace check_test
