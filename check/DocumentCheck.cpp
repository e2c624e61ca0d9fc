#include "DocumentCheck.h"

#include <algorithm>
#include <new>
#include <utility>

#include "DocumentParser.h"
#include "ParserMemory.h"
#include "StrayErrors.h"

namespace oimcheck {
namespace {

/// Bytes at a document's beginning by which UTF-16 and UTF-32 are told from UTF-8.
constexpr std::size_t LONGEST_MARK = 2;
/// Bytes that are handed to the parser at once: normally, and at most.
constexpr std::size_t STEP = std::size_t{1} << 20U;
constexpr std::size_t LONGEST_PORTION = std::size_t{1} << 29U;

std::string_view view(const xmlChar* text) {
    return text == nullptr ? std::string_view() : std::string_view(reinterpret_cast<const char*>(text));
}

/// A name as it is written.
std::string join(std::string_view prefix, std::string_view name) {
    return prefix.empty() ? std::string(name) : std::string(prefix).append(":").append(name);
}

bool equalsIgnoringCase(std::string_view text, std::string_view small) {
    return std::equal(text.begin(), text.end(), small.begin(), small.end(),
                      [](char a, char b) { return a == b || (a >= 'A' && a <= 'Z' && a - 'A' + 'a' == b); });
}

bool isBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

}  // namespace

DocumentCheck::Parser::Parser(Receiver receiver, std::uint64_t most)
    : receiver_(std::move(receiver)), most_(most) {
    handler_.initialized = XML_SAX2_MAGIC;
    handler_.startElementNs = onStart;
    handler_.endElementNs = onEnd;
    handler_.characters = onText;
    handler_.cdataBlock = onText;
    handler_.internalSubset = onDocumentType;
    handler_.serror = onError;
    const StrayErrors strayErrors(onStrayError, this);
    ParserMemory::forget();
    context_ = xmlCreatePushParserCtxt(&handler_, this, nullptr, 0, nullptr);
    if (context_ == nullptr || ParserMemory::hasFailed()) {
        xmlFreeParserCtxt(context_);
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
    summary_.bytes += count;
    start_.append(bytes, std::min(count, LONGEST_MARK - std::min(LONGEST_MARK, start_.size())));
    while (count > 0 && !stopped_) {
        const std::size_t step = std::min(count, STEP);
        held_.append(bytes, step);
        if (held_.size() >= std::min(unread(), LONGEST_PORTION)) {
            push();
        }
        bytes += step;
        count -= step;
    }
    return !stopped_;
}

/// How much of the document waits for the end of a tag.
std::size_t DocumentCheck::Parser::unread() const {
    return context_->input == nullptr ? 0
                                      : static_cast<std::size_t>(context_->input->end - context_->input->cur);
}

/// libxml2 looks through all that waits whenever something comes: what comes is held back until it is as much
/// again, so that a very long value does not take the square of its length.
void DocumentCheck::Parser::push() {
    parse(held_, false);
    held_.clear();
}

void DocumentCheck::Parser::parse(std::string_view bytes, bool isEnd) {
    {
        const StrayErrors strayErrors(onStrayError, this);
        ParserMemory::forget();
        xmlParseChunk(context_, bytes.data(), static_cast<int>(bytes.size()), isEnd ? 1 : 0);
    }
    rethrow();
    if (ParserMemory::hasFailed()) {
        throw std::bad_alloc();
    }
    if (!stopped_ && context_->disableSAX != 0) {
        tellLast(place(), "not well-formed: the parser gave up");
    }
}

Summary DocumentCheck::Parser::finish() {
    if (!stopped_) {
        push();
    }
    if (!stopped_) {
        parse({}, true);
    }
    if (!stopped_) {
        checkEncoding();
        tellLooseReferences();
    }
    return summary_;
}

template <typename Work>
void DocumentCheck::Parser::guard(const Work& work) {
    if (stopped_) {
        return;
    }
    try {
        work(*this);
    } catch (...) {
        failure_ = std::current_exception();
        stop();
    }
}

void DocumentCheck::Parser::rethrow() {
    if (failure_ != nullptr) {
        std::rethrow_exception(std::exchange(failure_, nullptr));
    }
}

void DocumentCheck::Parser::onStart(void* context, const xmlChar* name, const xmlChar* prefix,
                                    const xmlChar* uri, int namespaceCount, const xmlChar** namespaces,
                                    int attributeCount, int /*defaultedCount*/, const xmlChar** attributes) {
    self(context).guard([&](Parser& parser) {
        parser.startOfTag_.reset();
        const std::string tag = join(view(prefix), view(name));
        if (!parser.checkRoot(tag)) {
            return;
        }
        parser.checkPrefix(view(prefix), uri != nullptr);
        std::vector<Attribute>& list = parser.attributes_;
        list.clear();
        for (int i = 0; i < namespaceCount; ++i, namespaces += 2) {
            list.push_back({namespaces[0] == nullptr ? "xmlns" : join("xmlns", view(namespaces[0])),
                            view(namespaces[1])});
        }
        for (int i = 0; i < attributeCount; ++i, attributes += 5) {
            const char* value = reinterpret_cast<const char*>(attributes[3]);
            const auto length = static_cast<std::size_t>(attributes[4] - attributes[3]);
            parser.checkPrefix(view(attributes[1]), attributes[2] != nullptr);
            list.push_back({join(view(attributes[1]), view(attributes[0])), {value, length}});
        }
        parser.start(tag, list);
    });
}

void DocumentCheck::Parser::onEnd(void* context, const xmlChar* /*name*/, const xmlChar* /*prefix*/,
                                  const xmlChar* /*uri*/) {
    self(context).guard([](Parser& parser) { parser.end(); });
}

void DocumentCheck::Parser::onText(void* context, const xmlChar* text, int length) {
    self(context).guard([&](Parser& parser) {
        const std::string_view characters(reinterpret_cast<const char*>(text),
                                          static_cast<std::size_t>(length));
        if (parser.open_.empty() || parser.open_.back().textTold || isBlank(characters)) {
            return;
        }
        parser.open_.back().textTold = true;
        parser.tell(Finding::Severity::ERROR, parser.place(),
                    "text between elements, which the OIM encoding has not: " + quoted(characters));
    });
}

void DocumentCheck::Parser::onDocumentType(void* context, const xmlChar* /*name*/,
                                           const xmlChar* /*publicId*/, const xmlChar* /*systemId*/) {
    self(context).guard([](Parser& parser) {
        parser.tellLast(
            parser.place(),
            "a document type declaration, which is not read: documents name their DTDs as namespaces");
        parser.stop();
    });
}

void DocumentCheck::Parser::onError(void* context, xmlErrorPtr error) {
    self(context).guard([&](Parser& parser) {
        parser.takeError(*error);
        if (parser.stopped_) {
            parser.stop();
        }
    });
}

/// Here libxml2 is in the middle of its own input, which stopping the parser would take from it.
void DocumentCheck::Parser::onStrayError(void* context, xmlErrorPtr error) {
    Parser& parser = self(context);
    if (parser.stopped_) {
        return;
    }
    try {
        parser.takeError(*error);
    } catch (...) {
        parser.failure_ = std::current_exception();
        parser.stopped_ = true;
    }
}

void DocumentCheck::Parser::takeError(const xmlError& error) {
    if (error.level == XML_ERR_WARNING || error.domain == XML_FROM_NAMESPACE) {
        return;
    }
    if (error.code == XML_ERR_NO_MEMORY) {
        throw std::bad_alloc();
    }
    Identifiers::Place at = place();
    if (error.line > 0) {
        at = {error.line, error.int2};
    }
    tellLast(at, "not well-formed: " + describe(error));
}

std::string DocumentCheck::Parser::describe(const xmlError& error) const {
    if (error.code == XML_ERR_DOCUMENT_END && !open_.empty()) {
        return "the document ends before its elements do";
    }
    if (summary_.bytes == 0) {
        return "there is nothing in the document";
    }
    if (error.code == XML_ERR_DOCUMENT_EMPTY) {
        return "this is no XML";
    }
    if (error.domain == XML_FROM_I18N || error.code == XML_IO_ENCODER) {
        // The bytes are converted ahead of being read.
        return "behind this place there are bytes that are no text in the document's encoding, which is " +
               encodingName();
    }
    std::string text = error.message == nullptr ? "unknown error" : error.message;
    while (!text.empty() && (text.back() == '\n' || text.back() == '.')) {
        text.pop_back();
    }
    return text;
}

bool DocumentCheck::Parser::isWide() const {
    return start_ == "\xFE\xFF" || start_ == "\xFF\xFE" || start_ == std::string("<\0", 2) ||
           start_ == std::string("\0<", 2) || start_ == std::string("\0\0", 2);
}

/// The encoding as messages name it.
std::string DocumentCheck::Parser::encodingName() const {
    const std::string_view encoding = view(context_->encoding);
    return isWide() ? "UTF-16 or UTF-32" : encoding.empty() ? "UTF-8" : quoted(encoding);
}

void DocumentCheck::Parser::checkEncoding() {
    const std::string_view encoding = view(context_->encoding);
    if (isWide() || (!encoding.empty() && !equalsIgnoringCase(encoding, "utf-8"))) {
        tellInAnyCase({1, 1}, "the document is in " + encodingName() + ", not in UTF-8");
    }
    if (!rootSeen_) {
        tell(Finding::Severity::ERROR, {1, 1}, "there is no element");
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
