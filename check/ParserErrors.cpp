// What libxml2 stumbled over, in words for people who have a document and no parser before them.

#include <algorithm>

#include "DocumentParser.h"

namespace oimcheck {
namespace {

struct Sentence {
    int code;
    std::string_view text;
};

constexpr std::string_view BAD_DECLARATION =
    "the XML declaration is not as it should be, as in <?xml version=\"1.0\" encoding=\"UTF-8\"?>";
constexpr std::string_view BAD_REFERENCE = "a character reference that names no character";

constexpr Sentence SENTENCES[] = {
    {XML_ERR_DOCUMENT_EMPTY, "this is no XML"},
    {XML_ERR_DOCUMENT_END, "something stands behind the end of the root element"},
    {XML_ERR_INVALID_ENCODING, "bytes that are not UTF-8"},
    {XML_ERR_INVALID_CHARREF, BAD_REFERENCE},
    {XML_ERR_INVALID_DEC_CHARREF, BAD_REFERENCE},
    {XML_ERR_INVALID_HEX_CHARREF, BAD_REFERENCE},
    {XML_ERR_NAME_REQUIRED,
     "a name is expected and does not stand here; in texts, \"<\" is written &lt; and \"&\" is written "
     "&amp;"},
    {XML_ERR_ENTITYREF_SEMICOL_MISSING,
     "a reference without a \";\" at its end; in texts, \"&\" is written &amp;"},
    {XML_ERR_LT_IN_ATTRIBUTE,
     "a \"<\" in the value of an attribute; it is written &lt;, or a quotation mark is missing before it"},
    {XML_ERR_ATTRIBUTE_NOT_STARTED, "the value of an attribute does not begin with a quotation mark"},
    {XML_ERR_ATTRIBUTE_NOT_FINISHED, "the value of an attribute does not end with a quotation mark"},
    {XML_ERR_ATTRIBUTE_WITHOUT_VALUE, "an attribute without a value"},
    {XML_ERR_GT_REQUIRED, "a tag without a \">\" at its end"},
    {XML_ERR_SPACE_REQUIRED, "a blank is missing, as between two attributes"},
    {XML_ERR_MISPLACED_CDATA_END, "\"]]>\" without a section that it ends"},
    {XML_ERR_HYPHEN_IN_COMMENT, "\"--\" in a comment"},
    {XML_ERR_COMMENT_NOT_FINISHED, "a comment that does not end"},
    {XML_ERR_PI_NOT_FINISHED, "a processing instruction that does not end"},
    {XML_ERR_RESERVED_XML_NAME, "an XML declaration that is not the very beginning of the document"},
    {XML_ERR_XMLDECL_NOT_FINISHED, BAD_DECLARATION},
    {XML_ERR_VERSION_MISSING, BAD_DECLARATION},
    {XML_ERR_ENCODING_NAME, BAD_DECLARATION},
    {XML_ERR_STRING_NOT_STARTED, BAD_DECLARATION},
    {XML_ERR_STRING_NOT_CLOSED, BAD_DECLARATION},
};

/// libxml2's own words, in one line.
std::string ownWords(const xmlError& error) {
    std::string text = error.message == nullptr ? "unknown error" : error.message;
    while (!text.empty() && (text.back() == '\n' || text.back() == '.')) {
        text.pop_back();
    }
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

std::string_view orEmpty(const char* text) {
    return text == nullptr ? std::string_view() : std::string_view(text);
}

}  // namespace

std::string DocumentCheck::Parser::describe(const xmlError& error) const {
    if (summary_.bytes == 0) {
        return "there is nothing in the document";
    }
    if (isCutOff(error)) {
        return describeEnd() + "; it was probably cut off";
    }
    if (error.domain == XML_FROM_I18N || error.code == XML_IO_ENCODER) {
        // The bytes are converted ahead of being read.
        return "behind this place there are bytes that are no text in the document's encoding, which is " +
               encodingName();
    }
    switch (error.code) {
        case XML_ERR_INVALID_CHAR:
            // Of bytes that are no character, the error names the bytes.
            return error.str1 != nullptr ? "bytes that are not UTF-8"
                                         : "a character that XML does not permit";
        case XML_ERR_TAG_NAME_MISMATCH:
            return describeMismatch(error);
        case XML_ERR_ATTRIBUTE_REDEFINED: {
            const bool hasPrefix = error.str2 != nullptr;
            return "the attribute " +
                   quoted(hasPrefix ? join(orEmpty(error.str1), orEmpty(error.str2)) : orEmpty(error.str1)) +
                   " stands in a tag twice";
        }
        case XML_ERR_UNDECLARED_ENTITY:
        case XML_WAR_UNDECLARED_ENTITY:
            return "the entity " + quoted(orEmpty(error.str1)) +
                   " is not defined; in texts, \"&\" is written &amp;";
        case XML_ERR_UNSUPPORTED_ENCODING:
        case XML_ERR_UNKNOWN_ENCODING:
            return "the encoding " + quoted(orEmpty(error.str1)) + " is not known; documents are in UTF-8";
        default:
            break;
    }
    const auto* const found = std::find_if(std::begin(SENTENCES), std::end(SENTENCES),
                                           [&](const Sentence& row) { return row.code == error.code; });
    return found == std::end(SENTENCES) ? ownWords(error) : std::string(found->text);
}

/// Whether the error is that the document ends too early. What is wrong farther ahead may show only then,
/// too: a value without an end, say.
bool DocumentCheck::Parser::isCutOff(const xmlError& error) const {
    constexpr std::size_t LONGEST_CHARACTER = 4;
    const bool isComplete = rootSeen_ && open_.empty();
    if (error.code == XML_ERR_DOCUMENT_EMPTY || (error.code == XML_ERR_DOCUMENT_END && isComplete)) {
        return false;
    }
    const bool isInDeclaration = context_->instate == XML_PARSER_START;
    return isClosing_ &&
           (error.code == XML_ERR_DOCUMENT_END || isInDeclaration || unread() < LONGEST_CHARACTER);
}

std::string DocumentCheck::Parser::describeEnd() const {
    const auto known = std::find_if(open_.rbegin(), open_.rend(),
                                    [&](const Open& open) { return open.tag < grammar_.tagCount(); });
    if (known != open_.rend()) {
        return "the document ends in the middle of " + quoted(grammar_.nameOf(known->tag));
    }
    return rootSeen_ ? "the document ends in the middle of what stands behind its root"
                     : "the document ends before its first tag does";
}

std::string DocumentCheck::Parser::describeMismatch(const xmlError& error) const {
    const bool isKnown = !open_.empty() && open_.back().tag < grammar_.tagCount();
    return "an end tag where that of " +
           quoted(isKnown ? std::string_view(grammar_.nameOf(open_.back().tag)) : orEmpty(error.str1)) +
           ", which line " + std::to_string(error.int1) + " opened, is expected";
}

}  // namespace oimcheck
