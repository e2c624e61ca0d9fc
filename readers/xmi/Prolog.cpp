#include "Prolog.h"

#include <algorithm>
#include <iterator>

#include "Blanks.h"
#include "Reader.h"

namespace readers::xmi {

namespace {

/// More than any prolog needs. A document type that begins behind it is seen by the parser.
constexpr std::size_t LONGEST_PROLOG = std::size_t{1} << 20;
/// The same for the declaration of the encoding.
constexpr std::size_t LONGEST_DECLARATION = 200;

/// Moves behind a comment or instruction that begins at `at`; npos when it does not end.
std::size_t skipTo(std::string_view text, std::size_t at, std::string_view end) noexcept {
    const std::size_t found = text.find(end, at);
    return found == std::string_view::npos ? found : found + end.size();
}

/// Where what is neither blank nor comment nor instruction begins; npos when there is no such thing.
std::size_t skipProlog(std::string_view head) noexcept {
    std::size_t at = head.find_first_not_of(BLANKS);
    while (at != std::string_view::npos) {
        const std::string_view rest = head.substr(at);
        if (rest.starts_with("<?")) {
            at = skipTo(head, at, "?>");
        } else if (rest.starts_with("<!--")) {
            at = skipTo(head, at, "-->");
        } else {
            return at;
        }
        at = at == std::string_view::npos ? at : head.find_first_not_of(BLANKS, at);
    }
    return at;
}

/// Whether what looks like ASCII is ASCII, and nothing else is. A declaration in which the encoding could be
/// read in two ways does not count.
bool isPlainlyEncoded(std::string_view content) {
    constexpr std::string_view PLAIN_ENCODINGS[] = {"UTF-8", "US-ASCII", "ISO-8859-", "WINDOWS-125"};
    const std::string head = plainHead(content.substr(0, LONGEST_DECLARATION));
    const std::size_t end = head.find("?>");
    const std::size_t word = head.find("encoding");
    if (head.starts_with("<?xml") &&
        (end == std::string::npos || (word < end && head.find("encoding", word + 1) < end))) {
        return false;
    }
    std::string encoding = declaredEncoding(content);
    std::transform(encoding.begin(), encoding.end(), encoding.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return std::any_of(std::begin(PLAIN_ENCODINGS), std::end(PLAIN_ENCODINGS),
                       [&](std::string_view known) { return encoding.starts_with(known); });
}

/// The first printable characters, to show what a file is.
std::string showBeginning(std::string_view head) {
    constexpr std::size_t MOST = 16;
    const auto isPrintable = [](char character) { return character >= ' ' && character <= '~'; };
    const auto* const end =
        std::find_if_not(head.begin(), head.begin() + std::min(head.size(), MOST), isPrintable);
    const std::string shown(head.begin(), end);
    return shown.empty() ? "with bytes that are no text" : "with \"" + shown + "\"";
}

}  // namespace

std::string plainHead(std::string_view content) {
    constexpr std::string_view UTF8_MARK = "\xEF\xBB\xBF";
    if (content.starts_with(UTF8_MARK)) {
        content.remove_prefix(UTF8_MARK.size());
    } else if (content.starts_with("\xFF\xFE") || content.starts_with("\xFE\xFF")) {
        content.remove_prefix(2);
    }
    std::string head(content.substr(0, LONGEST_PROLOG));
    if (head.substr(0, 4).find('\0') != std::string::npos) {
        head.erase(std::remove(head.begin(), head.end(), '\0'), head.end());
    }
    return head;
}

std::size_t findRootElement(std::string_view head) noexcept {
    const std::size_t at = skipProlog(head);
    const bool isElement = at != std::string_view::npos && head[at] == '<' && head.substr(at, 2) != "<!";
    return isElement ? at : std::string_view::npos;
}

void checkProlog(std::string_view content) {
    const std::string head = plainHead(content);
    const std::size_t start = head.find_first_not_of(BLANKS);
    if (start == std::string::npos) {
        throw SourceError(SourceError::Kind::CANNOT_READ, "there is nothing in it");
    }
    if (head[start] != '<') {
        throw SourceError(
            SourceError::Kind::CANNOT_READ,
            "this is not XML: it begins " + showBeginning(std::string_view(head).substr(start)));
    }
    const std::size_t root = skipProlog(head);
    if (root != std::string::npos && std::string_view(head).substr(root).starts_with("<!DOCTYPE")) {
        refuseDocumentType();
    }
}

void refuseDocumentType() {
    throw SourceError(SourceError::Kind::CANNOT_READ,
                      "the file brings a document type (<!DOCTYPE ...>), and those are not read",
                      "take the document type out of a copy of the file; the model does not need it");
}

bool isSafeFromGrowth(std::string_view content) {
    const bool isWide = content.starts_with("\xFF\xFE") || content.starts_with("\xFE\xFF") ||
                        content.substr(0, 4).find('\0') != std::string_view::npos;
    return !isWide && isPlainlyEncoded(content) && content.find("<!DOCTYPE") == std::string_view::npos;
}

std::string declaredEncoding(std::string_view content) {
    const std::string head = plainHead(content.substr(0, LONGEST_DECLARATION));
    const std::string_view declaration = std::string_view(head).substr(0, head.find("?>"));
    const std::size_t word = declaration.find("encoding");
    const std::size_t open = word == std::string_view::npos ? word : declaration.find_first_of("\"'", word);
    if (open == std::string_view::npos || !declaration.starts_with("<?xml")) {
        return "UTF-8";
    }
    const std::string_view rest = declaration.substr(open + 1);
    return std::string(rest.substr(0, rest.find_first_of("\"'")));
}

}  // namespace readers::xmi
