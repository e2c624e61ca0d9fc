#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace oimcheck {

/// One thing that a check found.
struct Finding {
    enum class Severity {
        ERROR,
        NOTE  ///< worth knowing, and no fault of the document
    };
    Severity severity;
    int line = 1;    ///< counted from 1
    int column = 1;  ///< counted from 1
    std::string text;
    /// Of a note, why what it tells is no fault: the same words for notes of one kind.
    std::string explanation = {};
    /// In how many places it is so; this is the first one. Counted as so many errors or notes.
    std::uint64_t places = 1;
};

/// What a document holds, and how many findings there were, errors that were not told included.
struct Summary {
    std::uint64_t bytes = 0;
    std::uint64_t elements = 0;
    std::uint64_t objects = 0;
    std::uint64_t references = 0;
    std::uint64_t errors = 0;
    std::uint64_t notes = 0;
};

/// Checks a document as it comes: whether it is well-formed and UTF-8, in the OIM encoding, made of known
/// elements and attributes with permitted values, each in its place and with what it always has, with
/// identifiers given once and references that lead to an element of their own tag. Memory grows with the
/// number of identifiers, not with the size of the document; where it does not suffice, std::bad_alloc is
/// thrown.
class DocumentCheck {
  public:
    using Receiver = std::function<void(const Finding&)>;
    /// `receiver` hears of all notes, of the first `most` errors and, whatever came before, of another
    /// encoding and of the error that ends the check; further errors are counted.
    explicit DocumentCheck(Receiver receiver, std::uint64_t most = 100);
    ~DocumentCheck();
    DocumentCheck(const DocumentCheck&) = delete;
    DocumentCheck& operator=(const DocumentCheck&) = delete;

    /// The next bytes of the document. False when the rest need not be read, because an error ended the
    /// check: the document is not well-formed, no OIM document, too deep, or has a document type.
    bool feed(const char* bytes, std::size_t count);
    /// To be called once, after the last bytes.
    Summary finish();

  private:
    class Parser;
    std::unique_ptr<Parser> parser_;
};

}  // namespace oimcheck
