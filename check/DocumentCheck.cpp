#include "DocumentCheck.h"

#include <libxml/parser.h>

#include <algorithm>
#include <cstdarg>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "Identifiers.h"
#include "OimGrammar.h"

namespace oimcheck {
namespace {

/// Deeper nesting is refused; packages nested a thousand deep need two elements each.
constexpr std::size_t DEEPEST_NESTING = 10'000;
/// The tag of an element that the grammar does not know.
constexpr std::uint16_t OTHER = 0xfffe;
constexpr std::uint16_t NOWHERE = 0xfffd;

std::string_view view(const xmlChar* text) {
    return text == nullptr ? std::string_view() : std::string_view(reinterpret_cast<const char*>(text));
}

/// A name as it is written.
std::string join(std::string_view prefix, std::string_view name) {
    return prefix.empty() ? std::string(name) : std::string(prefix).append(":").append(name);
}

std::string quoted(std::string_view text) {
    constexpr std::size_t LONGEST = 60;
    const bool isLong = text.size() > LONGEST;
    return "\"" + std::string(text.substr(0, LONGEST)) + (isLong ? "...\"" : "\"");
}

bool isBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

}  // namespace

/// One document on its way through libxml2's push parser. Names are taken with their prefixes, as they stand.
class DocumentCheck::Parser {
  public:
    Parser(Receiver receiver, std::uint64_t most);
    ~Parser();
    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;

    bool feed(const char* bytes, std::size_t count);
    Summary finish();

  private:
    /// An attribute with its prefix, as it is written; those that declare a namespace among them.
    struct Attribute {
        std::string name;
        std::string_view value;
    };
    /// An element that is open.
    struct Open {
        std::uint16_t tag;
        bool isLink;
        bool textTold;
    };

    static Parser& self(void* context) { return *static_cast<Parser*>(context); }
    static void onStart(void* context, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri,
                        int namespaceCount, const xmlChar** namespaces, int attributeCount,
                        int defaultedCount, const xmlChar** attributes);
    static void onEnd(void* context, const xmlChar* name, const xmlChar* prefix, const xmlChar* uri);
    static void onText(void* context, const xmlChar* text, int length);
    static void onDocumentType(void* context, const xmlChar* name, const xmlChar* publicId,
                               const xmlChar* systemId);
    static void onError(void* context, xmlErrorPtr error);

    void start(std::string_view name, const std::vector<Attribute>& attributes);
    void checkPlace(std::string_view name, std::uint16_t tag, bool isLink);
    void checkIdentifier(std::string_view name, std::uint16_t tag, std::string_view id, bool isPresent);
    void checkReference(std::string_view name, std::uint16_t tag, std::string_view href);
    void checkAttribute(std::string_view element, std::uint16_t tag, std::string_view name,
                        std::string_view value);
    void checkEncoding();
    void tellLooseReferences();

    Identifiers::Place place() const;
    void tell(Finding::Severity severity, Identifiers::Place at, std::string text);
    void error(std::string text) { tell(Finding::Severity::ERROR, place(), std::move(text)); }
    void stop();

    const OimGrammar& grammar_ = OimGrammar::instance();
    Receiver receiver_;
    std::uint64_t most_;
    Summary summary_;
    Identifiers identifiers_;
    std::vector<Open> open_;
    std::vector<Attribute> attributes_;  // of the element that starts; kept for its memory
    xmlSAXHandler handler_{};
    xmlParserCtxtPtr context_ = nullptr;
    bool stopped_ = false;
    bool rootSeen_ = false;
};

DocumentCheck::Parser::Parser(Receiver receiver, std::uint64_t most)
    : receiver_(std::move(receiver)), most_(most) {
    handler_.initialized = XML_SAX2_MAGIC;
    handler_.startElementNs = onStart;
    handler_.endElementNs = onEnd;
    handler_.characters = onText;
    handler_.cdataBlock = onText;
    handler_.internalSubset = onDocumentType;
    handler_.serror = onError;
    context_ = xmlCreatePushParserCtxt(&handler_, this, nullptr, 0, nullptr);
    if (context_ == nullptr) {
        throw std::bad_alloc();
    }
    // "Huge" lifts the parser's own bounds on nesting and on the length of a value, which large models
    // exceed.
    xmlCtxtUseOptions(context_, XML_PARSE_NONET | XML_PARSE_HUGE);
}

DocumentCheck::Parser::~Parser() {
    xmlFreeParserCtxt(context_);
}

bool DocumentCheck::Parser::feed(const char* bytes, std::size_t count) {
    constexpr std::size_t STEP = std::size_t{1} << 20U;
    summary_.bytes += count;
    while (count > 0 && !stopped_) {
        const std::size_t step = std::min(count, STEP);
        xmlParseChunk(context_, bytes, static_cast<int>(step), 0);
        bytes += step;
        count -= step;
    }
    return !stopped_;
}

Summary DocumentCheck::Parser::finish() {
    if (!stopped_) {
        xmlParseChunk(context_, nullptr, 0, 1);
    }
    if (!stopped_) {
        checkEncoding();
        tellLooseReferences();
    }
    return summary_;
}

void DocumentCheck::Parser::onStart(void* context, const xmlChar* name, const xmlChar* prefix,
                                    const xmlChar* /*uri*/, int namespaceCount, const xmlChar** namespaces,
                                    int attributeCount, int /*defaultedCount*/, const xmlChar** attributes) {
    Parser& parser = self(context);
    if (parser.stopped_) {
        return;
    }
    std::vector<Attribute>& list = parser.attributes_;
    list.clear();
    for (int i = 0; i < namespaceCount; ++i, namespaces += 2) {
        list.push_back(
            {namespaces[0] == nullptr ? "xmlns" : join("xmlns", view(namespaces[0])), view(namespaces[1])});
    }
    for (int i = 0; i < attributeCount; ++i, attributes += 5) {
        const char* value = reinterpret_cast<const char*>(attributes[3]);
        const auto length = static_cast<std::size_t>(attributes[4] - attributes[3]);
        list.push_back({join(view(attributes[1]), view(attributes[0])), {value, length}});
    }
    parser.start(join(view(prefix), view(name)), list);
}

void DocumentCheck::Parser::onEnd(void* context, const xmlChar* /*name*/, const xmlChar* /*prefix*/,
                                  const xmlChar* /*uri*/) {
    if (!self(context).stopped_) {
        self(context).open_.pop_back();
    }
}

void DocumentCheck::Parser::onText(void* context, const xmlChar* text, int length) {
    Parser& parser = self(context);
    const std::string_view characters(reinterpret_cast<const char*>(text), static_cast<std::size_t>(length));
    if (parser.stopped_ || parser.open_.empty() || parser.open_.back().textTold || isBlank(characters)) {
        return;
    }
    parser.open_.back().textTold = true;
    parser.error("text between elements, which the OIM encoding has not: " + quoted(characters));
}

void DocumentCheck::Parser::onDocumentType(void* context, const xmlChar* /*name*/,
                                           const xmlChar* /*publicId*/, const xmlChar* /*systemId*/) {
    self(context).error(
        "a document type declaration, which is not read: documents name their DTDs as namespaces");
    self(context).stop();
}

void DocumentCheck::Parser::onError(void* context, xmlErrorPtr error) {
    Parser& parser = self(context);
    if (parser.stopped_ || error->level == XML_ERR_WARNING || error->domain == XML_FROM_NAMESPACE) {
        return;
    }
    std::string text = error->message == nullptr ? "unknown error" : error->message;
    while (!text.empty() && (text.back() == '\n' || text.back() == '.')) {
        text.pop_back();
    }
    parser.tell(Finding::Severity::ERROR, {error->line, error->int2}, "not well-formed: " + text);
    parser.stop();
}

void DocumentCheck::Parser::start(std::string_view name, const std::vector<Attribute>& attributes) {
    ++summary_.elements;
    if (open_.size() >= DEEPEST_NESTING) {
        error("elements are nested deeper than " + std::to_string(DEEPEST_NESTING));
        stop();
        return;
    }
    const std::uint16_t known = grammar_.find(name);
    const std::uint16_t tag = known == OimGrammar::UNKNOWN ? OTHER : known;
    std::string_view id;
    std::string_view href;
    bool hasId = false;
    bool isLink = false;
    for (const Attribute& attribute : attributes) {
        if (attribute.name == "oim:id") {
            id = attribute.value;
            hasId = true;
        } else if (attribute.name == "oim:href") {
            href = attribute.value;
            isLink = true;
        } else if (tag != OTHER) {
            checkAttribute(name, tag, attribute.name, attribute.value);
        }
    }
    checkPlace(name, tag, isLink);
    if (isLink) {
        checkReference(name, tag, href);
    }
    if (!isLink || hasId) {
        checkIdentifier(name, tag, id, hasId);
    }
    open_.push_back({tag, isLink, false});
}

void DocumentCheck::Parser::checkPlace(std::string_view name, std::uint16_t tag, bool isLink) {
    if (tag == OTHER) {
        error("unknown element " + quoted(name));
        return;
    }
    if (open_.empty()) {
        if (grammar_[tag].name != "oim:Transfer") {
            error("the root is " + quoted(name) + " where \"oim:Transfer\" is expected");
        }
        rootSeen_ = true;
        return;
    }
    if (open_.back().isLink) {
        error("a reference holds the element " + quoted(name) + "; references are empty");
        return;
    }
    if (open_.back().tag == OTHER) {
        return;
    }
    const ElementRule& parent = grammar_[open_.back().tag];
    const std::vector<std::uint16_t>& permitted = isLink ? parent.references : parent.children;
    if (std::find(permitted.begin(), permitted.end(), tag) == permitted.end()) {
        error((isLink ? "a reference to " : "the element ") + quoted(name) + " does not belong in " +
              quoted(parent.name));
    }
}

void DocumentCheck::Parser::checkIdentifier(std::string_view name, std::uint16_t tag, std::string_view id,
                                            bool isPresent) {
    const ElementKind kind = tag == OTHER ? ElementKind::OBJECT : grammar_[tag].kind;
    const bool takesId = kind == ElementKind::OBJECT || kind == ElementKind::NUMBERED_ASSOCIATION;
    if (!isPresent) {
        if (takesId && tag != OTHER) {
            error("the object " + quoted(name) + " has no oim:id");
        }
        return;
    }
    ++summary_.objects;
    if (!takesId) {
        error("the element " + quoted(name) + " is no object and has an oim:id");
    }
    const int number = Identifiers::parse(id, "_");
    if (number == 0) {
        error("the identifier " + quoted(id) + " is not of the form \"_N\"");
    } else if (!identifiers_.give(number, tag)) {
        error("the identifier " + quoted(id) + " was given before");
    }
}

void DocumentCheck::Parser::checkReference(std::string_view name, std::uint16_t tag, std::string_view href) {
    ++summary_.references;
    const int number = Identifiers::parse(href, "#_");
    if (number == 0) {
        error("the reference " + quoted(href) + " of " + quoted(name) + " is not of the form \"#_N\"");
    } else if (tag != OTHER) {
        identifiers_.refer({number, tag, open_.empty() ? OTHER : open_.back().tag, place()});
    }
}

void DocumentCheck::Parser::checkAttribute(std::string_view element, std::uint16_t tag, std::string_view name,
                                           std::string_view value) {
    const AttributeRule* rule = grammar_[tag].findAttribute(name);
    if (rule == nullptr) {
        error("unknown attribute " + quoted(name) + " of " + quoted(element));
    } else if (!rule->permits(value)) {
        error("the attribute " + quoted(name) + " of " + quoted(element) + " is " + quoted(value) +
              " where " + rule->describe() + " is expected");
    }
}

void DocumentCheck::Parser::checkEncoding() {
    const std::string_view encoding = view(context_->encoding);
    if (!encoding.empty() && encoding != "UTF-8" && encoding != "utf-8") {
        tell(Finding::Severity::ERROR, {1, 1}, "the document is in " + quoted(encoding) + ", not in UTF-8");
    }
    if (!rootSeen_) {
        tell(Finding::Severity::ERROR, {1, 1}, "there is no element");
    }
}

void DocumentCheck::Parser::tellLooseReferences() {
    identifiers_.forEachLoose(NOWHERE, [this](const Identifiers::Reference& reference, std::uint16_t target) {
        const std::string& tag = grammar_[reference.tag].name;
        const std::string_view holder = reference.holder == OTHER
                                            ? std::string_view()
                                            : std::string_view(grammar_[reference.holder].name);
        const std::string_view explanation = explainLooseReference(holder);
        std::string text =
            "the reference to _" + std::to_string(reference.id) + " in " + quoted(holder) + " leads ";
        text += target == NOWHERE
                    ? "nowhere"
                    : "to " + (target == OTHER ? "an unknown element" : quoted(grammar_[target].name));
        text += target == NOWHERE ? "" : ", not to " + quoted(tag);
        if (!explanation.empty()) {
            text.append(" (").append(explanation).append(")");
        }
        tell(explanation.empty() ? Finding::Severity::ERROR : Finding::Severity::NOTE, reference.place,
             std::move(text));
    });
}

Identifiers::Place DocumentCheck::Parser::place() const {
    return {xmlSAX2GetLineNumber(context_), xmlSAX2GetColumnNumber(context_)};
}

void DocumentCheck::Parser::tell(Finding::Severity severity, Identifiers::Place at, std::string text) {
    std::uint64_t& count = severity == Finding::Severity::ERROR ? summary_.errors : summary_.notes;
    ++count;
    if (summary_.errors + summary_.notes <= most_) {
        receiver_({severity, std::max(at.line, 1), std::max(at.column, 1), std::move(text)});
    }
}

void DocumentCheck::Parser::stop() {
    stopped_ = true;
    xmlStopParser(context_);
}

DocumentCheck::DocumentCheck(Receiver receiver, std::uint64_t most)
    : parser_(std::make_unique<Parser>(std::move(receiver), most)) {}

DocumentCheck::~DocumentCheck() = default;

bool DocumentCheck::feed(const char* bytes, std::size_t count) {
    return parser_->feed(bytes, count);
}

Summary DocumentCheck::finish() {
    return parser_->finish();
}

}  // namespace oimcheck
