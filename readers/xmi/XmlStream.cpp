#include "XmlStream.h"

#include <algorithm>
#include <iterator>
#include <mutex>

#include "Prolog.h"
#include "Reader.h"
#include "Utf8.h"

namespace readers::xmi {

namespace {

/// Faults that only a file has that ends too early.
constexpr int CUT_OFF_CODES[] = {XML_ERR_DOCUMENT_END, XML_ERR_TAG_NOT_FINISHED, XML_ERR_COMMENT_NOT_FINISHED,
                                 XML_ERR_CDATA_NOT_FINISHED, XML_ERR_PI_NOT_FINISHED};
constexpr int ENCODING_CODES[] = {XML_ERR_INVALID_ENCODING, XML_I18N_CONV_FAILED, XML_IO_ENCODER,
                                  XML_I18N_EXCESS_HANDLER};
constexpr int UNKNOWN_ENCODING_CODES[] = {XML_ERR_UNKNOWN_ENCODING, XML_ERR_UNSUPPORTED_ENCODING,
                                          XML_I18N_NO_HANDLER};

template <std::size_t N>
bool isOneOf(const int (&codes)[N], int code) noexcept {
    return std::find(std::begin(codes), std::end(codes), code) != std::end(codes);
}

/// Whether a tag, text or comment may be very long: no "<" stands inside most of them. The parser looks at
/// such a thing again with every small portion that it gets, and refuses it when it exceeds 10 MB.
bool holdsLongSection(std::string_view content) noexcept {
    constexpr std::size_t LONG_SECTION = std::size_t{256} << 10;
    for (std::size_t at = content.find('<'); at != std::string_view::npos;) {
        const std::size_t next = content.find('<', at + 1);
        if (std::min(next, content.size()) - at > LONG_SECTION) {
            return true;
        }
        at = next;
    }
    return false;
}

/// Whether the last thing in the file is no end of an element.
bool endsInTheMiddle(std::string_view content) noexcept {
    const std::size_t last = content.find_last_not_of(std::string_view(" \t\r\n\0", 5));
    return last == std::string_view::npos || content[last] != '>';
}

/// Whether the parser is behind the end of the outermost element.
bool isBehindRoot(const void* context) noexcept {
    const auto* parser = static_cast<const xmlParserCtxt*>(context);
    return parser != nullptr && parser->nameNr == 0 && parser->myDoc != nullptr &&
           xmlDocGetRootElement(parser->myDoc) != nullptr;
}

std::string inLine(int line, std::string text) {
    return line > 0 ? "line " + std::to_string(line) + ": " + std::move(text) : text;
}

/// As in " (U+0001)".
std::string codePoint(int character) {
    constexpr std::string_view DIGITS = "0123456789ABCDEF";
    std::string number;
    for (int rest = character; rest > 0 || number.size() < 4; rest /= 16) {
        number.insert(number.begin(), DIGITS[static_cast<std::size_t>(rest % 16)]);
    }
    return " (U+" + number + ")";
}

[[noreturn]] void throwTooDeep(int line) {
    throw SourceError(
        SourceError::Kind::CANNOT_READ,
        inLine(line, "elements are nested deeper than " + std::to_string(XmlStream::DEEPEST_ELEMENT) +
                         " levels, the most permitted"));
}

/// The parser's own words as the rest of a sentence.
std::string trimMessage(const char* message) {
    std::string text = message == nullptr ? "" : message;
    text.erase(
        std::find_if(text.rbegin(), text.rend(), [](char c) { return c != '\n' && c != ' ' && c != '!'; })
            .base(),
        text.end());
    return text;
}

void ignoreWords(void* /*data*/, const char* /*format*/, ...) {}

}  // namespace

XmlStream::StrayFaults::StrayFaults(Fault& fault) {
    static std::once_flag initialised;
    std::call_once(initialised, xmlInitParser);
    handler_ = xmlStructuredError;
    data_ = xmlStructuredErrorContext;
    printer_ = xmlGenericError;
    printerData_ = xmlGenericErrorContext;
    xmlSetStructuredErrorFunc(&fault, noteFault);
    // What comes as plain words comes a second time as an error, or as a failure to go on.
    xmlSetGenericErrorFunc(nullptr, ignoreWords);
}

XmlStream::StrayFaults::~StrayFaults() {
    xmlSetGenericErrorFunc(printerData_, printer_);
    xmlSetStructuredErrorFunc(data_, handler_);
    xmlResetLastError();  // the parser keeps its last message for whoever asks
}

XmlStream::XmlStream(std::string_view content) : content_(content), strayFaults_(fault_) {
    checkProlog(content);
    if (content.size() > INT32_MAX) {
        throw SourceError(SourceError::Kind::CANNOT_READ, "is larger than 2 GiB");
    }
    constexpr int OPTIONS = XML_PARSE_NONET | XML_PARSE_NOBLANKS | XML_PARSE_NOCDATA | XML_PARSE_COMPACT;
    const int size = static_cast<int>(content.size());
    if (holdsLongSection(content) && isSafeFromGrowth(content)) {
        // "Huge" lifts the parser's own bounds: those on entities, on the length of a text, and on nesting,
        // which has a bound here.
        whole_.reset(xmlReadMemory(content.data(), size, nullptr, nullptr,
                                   OPTIONS | XML_PARSE_HUGE | XML_PARSE_BIG_LINES));
        if (whole_ == nullptr || fault_.code != 0) {
            throwFault();
        }
        reader_.reset(xmlReaderWalker(whole_.get()));
    } else {
        reader_.reset(xmlReaderForMemory(content.data(), size, nullptr, nullptr, OPTIONS));
    }
    if (reader_ == nullptr) {
        throw std::bad_alloc();
    }
    if (whole_ == nullptr) {
        xmlTextReaderSetStructuredErrorHandler(reader_.get(), noteFault, &fault_);
    }
}

void XmlStream::noteFault(void* data, xmlErrorPtr error) noexcept {
    auto& fault = *static_cast<Fault*>(data);
    // Faults of less weight are a tool's careless use of namespaces; what they mean is clear all the same.
    const bool counts = error->level == XML_ERR_FATAL || isOneOf(ENCODING_CODES, error->code) ||
                        isOneOf(UNKNOWN_ENCODING_CODES, error->code);
    if (fault.code == 0 && counts) {
        fault.code = error->code;
        fault.line = error->line;
        fault.character = error->code == XML_ERR_INVALID_CHAR ? error->int1 : 0;
        fault.isBehindRoot = error->domain == XML_FROM_PARSER && isBehindRoot(error->ctxt);
        try {
            fault.text = trimMessage(error->message);
        } catch (const std::bad_alloc&) {
            // No exception may pass through the parser. The code tells enough.
        }
    }
}

bool XmlStream::advance() {
    const int result = xmlTextReaderRead(reader_.get());
    if (result < 0 || fault_.code != 0) {
        throwFault();
    }
    node_ = result == 0 ? nullptr : xmlTextReaderCurrentNode(reader_.get());
    return node_ != nullptr;
}

XmlStream::Event XmlStream::next() {
    if (endIsDue_) {
        endIsDue_ = false;
        return Event::END;
    }
    while (advance()) {
        switch (xmlTextReaderNodeType(reader_.get())) {
            case XML_READER_TYPE_ELEMENT:
                if (xmlTextReaderDepth(reader_.get()) >= DEEPEST_ELEMENT) {
                    throwTooDeep(static_cast<int>(line()));
                }
                endIsDue_ = xmlTextReaderIsEmptyElement(reader_.get()) == 1;
                return Event::START;
            case XML_READER_TYPE_END_ELEMENT:
                return Event::END;
            case XML_READER_TYPE_TEXT:
            case XML_READER_TYPE_CDATA:
            case XML_READER_TYPE_SIGNIFICANT_WHITESPACE:
                return Event::TEXT;
            case XML_READER_TYPE_DOCUMENT_TYPE:
            case XML_READER_TYPE_ENTITY_REFERENCE:
                refuseDocumentType();
            default:
                break;  // comments and processing instructions say nothing of the model
        }
    }
    return Event::FINISHED;
}

std::uint32_t XmlStream::line() const noexcept {
    constexpr int FIRST_UNKNOWN = 65535;  // where the parser's counter for nodes ends
    if (node_->line < FIRST_UNKNOWN) {
        return node_->line;
    }
    const int near = whole_ == nullptr ? xmlTextReaderGetParserLineNumber(reader_.get())
                                       : static_cast<int>(xmlGetLineNo(node_));
    return static_cast<std::uint32_t>(std::max(FIRST_UNKNOWN, near));
}

/// The parser has one number for characters that XML does not have and bytes that are none.
bool XmlStream::isFaultOfBytes() const {
    return fault_.code == XML_ERR_INVALID_CHAR && fault_.text.starts_with("Input is not proper UTF-8") &&
           !isUtf8(content_);
}

void XmlStream::throwFault() const {
    constexpr auto CANNOT_READ = SourceError::Kind::CANNOT_READ;
    if (fault_.code == XML_ERR_NO_MEMORY) {
        throw std::bad_alloc();
    }
    const bool gaveUp = fault_.code == 0 || fault_.code == XML_ERR_INTERNAL_ERROR;
    if (gaveUp && holdsLongSection(content_) && !isSafeFromGrowth(content_)) {
        throw SourceError(CANNOT_READ,
                          inLine(fault_.line, "a text, an attribute or a comment is longer than 10 MB"),
                          "save the file as UTF-8, where it may be longer");
    }
    if (fault_.text.starts_with("Excessive depth")) {
        throwTooDeep(fault_.line);
    }
    if (isOneOf(UNKNOWN_ENCODING_CODES, fault_.code)) {
        throw SourceError(CANNOT_READ,
                          inLine(fault_.line, "the encoding that the file declares, " +
                                                  declaredEncoding(content_) + ", is not known here"),
                          "save it as UTF-8");
    }
    if (isOneOf(ENCODING_CODES, fault_.code) || isFaultOfBytes()) {
        throw SourceError(
            CANNOT_READ,
            inLine(fault_.line, "there are bytes that are no text in the file's encoding, which is " +
                                    declaredEncoding(content_)),
            "save it in that encoding, or let its first line declare the one that it has");
    }
    if (fault_.code == XML_ERR_INVALID_CHAR) {
        throw SourceError(CANNOT_READ,
                          inLine(fault_.line, "there is a character that XML does not permit" +
                                                  (fault_.character > 0 ? codePoint(fault_.character) : "")),
                          "take it out; most often it is a control character that came with a pasted text");
    }
    if (fault_.isBehindRoot) {
        throw SourceError(CANNOT_READ,
                          inLine(fault_.line, "there is something behind the end of the outermost element"),
                          "it was probably put together from two files; take out what is not the model's");
    }
    if (isOneOf(CUT_OFF_CODES, fault_.code) || endsInTheMiddle(content_)) {
        throw SourceError(CANNOT_READ, inLine(fault_.line, "the file ends in the middle of an element"),
                          "it was probably cut off when it was written or copied");
    }
    throw SourceError(CANNOT_READ,
                      inLine(fault_.line, "this is not well-formed XML: " +
                                              (fault_.text.empty() ? "the parser gave up" : fault_.text)));
}

}  // namespace readers::xmi
