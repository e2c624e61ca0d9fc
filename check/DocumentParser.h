#pragma once

#include <libxml/parser.h>

#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "DocumentCheck.h"
#include "Identifiers.h"
#include "OimGrammar.h"

namespace oimcheck {

/// One document on its way through libxml2's push parser. Names are taken with their prefixes, as they stand.
class DocumentCheck::Parser {
  public:
    Parser(Receiver receiver, std::uint64_t most);
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
        std::uint16_t rule;  ///< OimGrammar::UNKNOWN where nothing can be said of what it holds
        bool isLink;
        bool textTold = false;
        bool isEmpty = true;
        std::uint32_t met = 0;     ///< of the rule's children, those that were there
        std::uint32_t missed = 0;  ///< and those that were told to be missing
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
    static void onStrayError(void* context, xmlErrorPtr error);

    // What libxml2 tells (DocumentCheck.cpp)
    /// Does the work of a callback, unless parsing was stopped. No exception may pass libxml2: it waits here.
    template <typename Work>
    void guard(const Work& work);
    void rethrow();
    std::size_t unread() const;
    void push();
    void parse(std::string_view bytes, bool isEnd);
    void takeError(const xmlError& error);
    bool isWide() const;
    std::string encodingName() const;
    void checkEncoding();
    void stop();

    // Its errors in words (ParserErrors.cpp)
    std::string describe(const xmlError& error) const;
    bool isCutOff(const xmlError& error) const;
    std::string describeEnd() const;
    std::string describeMismatch(const xmlError& error) const;

    // What is told, and where (ParserFindings.cpp)
    Identifiers::Place place() const;
    /// Where the tag that is being reported begins; the parser itself stands at its end.
    const Identifiers::Place& startOfTag();
    Identifiers::Place findStart(char first) const;
    Identifiers::Place placeOf(const char* byte) const;
    /// Of the first character in it that is not blank.
    Identifiers::Place startOfText(std::string_view text) const;
    void tell(Identifiers::Place at, std::string text);
    void deliver(Finding finding, Identifiers::Place at) const;
    /// An error that is delivered however many came before it.
    void tellInAnyCase(Identifiers::Place at, std::string text);
    /// The error that ends the check: it is delivered in any case, and nothing is taken from the parser after
    /// it.
    void tellLast(Identifiers::Place at, std::string text);
    /// An error of the tag that is being reported. One tag may have very many: once enough were told, neither
    /// their place nor their text is made.
    template <typename MakeText>
    void error(const MakeText& makeText) {
        if (summary_.errors >= most_) {
            ++summary_.errors;
        } else {
            tell(startOfTag(), makeText());
        }
    }

    // What the grammar has to do with it (ElementChecks.cpp)
    /// False when it is the root, and not that of an OIM document.
    bool checkRoot(std::string_view name);
    void start(std::string_view name, const std::vector<Attribute>& attributes);
    void end();
    void checkPrefix(std::string_view prefix, bool isDeclared);
    void checkObject(std::string_view name, std::uint16_t tag, std::uint16_t rule,
                     const std::vector<Attribute>& attributes);
    void checkRequired(const ElementRule& rule, const std::vector<Attribute>& attributes);
    /// The rule of the element that starts.
    std::uint16_t checkPlace(std::string_view name, std::uint16_t tag, bool isLink);
    void checkChild(std::size_t place);
    void checkComplete(const Open& ended);
    void checkIdentifier(std::string_view name, std::uint16_t tag, std::string_view id, bool isPresent);
    void checkReference(std::string_view name, std::uint16_t tag, const Attribute& href,
                        const std::vector<Attribute>& attributes);
    void checkAttribute(const ElementRule& rule, std::string_view name, std::string_view value);
    std::string describeLoose(const Identifiers::Reference& reference, std::uint16_t target) const;
    void tellLooseReferences();
    void tellLoose(const Identifiers::Reference& reference, std::uint16_t target);

    const OimGrammar& grammar_ = OimGrammar::instance();
    Receiver receiver_;
    std::uint64_t most_;
    Summary summary_;
    Identifiers identifiers_;
    std::vector<Open> open_;
    std::vector<Attribute> attributes_;  // of the element that starts; kept for its memory
    xmlSAXHandler handler_{};
    std::unique_ptr<xmlParserCtxt, void (*)(xmlParserCtxtPtr)> context_{nullptr, xmlFreeParserCtxt};
    std::optional<Identifiers::Place> startOfTag_;  // once it was asked for
    bool stopped_ = false;
    bool rootSeen_ = false;
    bool isClosing_ = false;  // all bytes have come
    std::exception_ptr failure_;
    std::string held_;                             // bytes that the parser has yet to get
    std::vector<std::string> undeclaredPrefixes_;  // that were told
    std::string start_;                            // of the document: the bytes that tell the encoding
};

/// libxml2's text; empty for null.
inline std::string_view view(const xmlChar* text) {
    return text == nullptr ? std::string_view() : std::string_view(reinterpret_cast<const char*>(text));
}

/// A name as it is written.
inline std::string join(std::string_view prefix, std::string_view name) {
    return prefix.empty() ? std::string(name) : std::string(prefix).append(":").append(name);
}

constexpr std::string_view BLANKS = " \t\r\n";

/// The text between quotation marks, shortened when it is long.
std::string quoted(std::string_view text);

}  // namespace oimcheck
