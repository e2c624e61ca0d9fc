#include "Document.h"

#include <libxml/parser.h>
#include <libxml/tree.h>

#include <memory>
#include <set>

namespace cases {

namespace {

struct Identifiers {
    std::set<std::string> defined;
    std::set<std::string> referenced;
    std::vector<std::string> faults;
};

std::string attribute(xmlNode* element, const char* name) {
    const std::unique_ptr<xmlChar, void (*)(void*)> value(
        xmlGetNsProp(element, reinterpret_cast<const xmlChar*>(name),
                     reinterpret_cast<const xmlChar*>("http://www.mdcinfo.com/oim/oim.dtd")),
        xmlFree);
    return value == nullptr ? "" : reinterpret_cast<const char*>(value.get());
}

void collect(xmlNode* element, Identifiers& found) {
    for (; element != nullptr; element = element->next) {
        if (element->type != XML_ELEMENT_NODE) {
            continue;
        }
        const std::string where = " at line " + std::to_string(xmlGetLineNo(element));
        const std::string id = attribute(element, "id");
        if (!id.empty() && !found.defined.insert("#" + id).second) {
            found.faults.push_back("the identifier " + id + where + " stood before");
        }
        const std::string reference = attribute(element, "href");
        if (!reference.empty()) {
            found.referenced.insert(reference);
        }
        collect(element->children, found);
    }
}

void keepFirst(void* text, xmlError* error) {
    auto& fault = *static_cast<std::string*>(text);
    if (fault.empty()) {
        fault = "not well-formed at line " + std::to_string(error->line) + ": " + error->message;
    }
}

}  // namespace

std::vector<std::string> findFaults(const std::string& document, bool mayDangle) {
    std::string fault;
    xmlSetStructuredErrorFunc(&fault, keepFirst);
    const std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> parsed(
        xmlReadMemory(document.data(), static_cast<int>(document.size()), nullptr, nullptr, XML_PARSE_NONET),
        xmlFreeDoc);
    xmlSetStructuredErrorFunc(nullptr, nullptr);
    if (parsed == nullptr || !fault.empty()) {
        return {fault};
    }
    Identifiers found;
    collect(xmlDocGetRootElement(parsed.get()), found);
    for (const std::string& reference : found.referenced) {
        if (!mayDangle && found.defined.count(reference) == 0) {
            found.faults.push_back("the reference " + reference + " leads nowhere");
        }
    }
    return found.faults;
}

}  // namespace cases
