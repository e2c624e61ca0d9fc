#pragma once

#include <string>
#include <string_view>

namespace readers::xmi {

/// Looks at what stands before the outermost element. Throws SourceError when the file is no XML or brings a
/// document type, which could define entities that grow without bounds.
void checkProlog(std::string_view content);

/// What is thrown for a document type.
[[noreturn]] void refuseDocumentType();

/// Whether no document type can stand anywhere in the file, nor be hidden by an unusual encoding: then
/// nothing in it becomes larger than it is written. Says no rather than yes.
bool isSafeFromGrowth(std::string_view content);

/// The encoding that the first line declares; "UTF-8" without one.
std::string declaredEncoding(std::string_view content);

/// The beginning of a file as text: without a byte-order mark and, for encodings of two bytes a character,
/// without their zeros.
std::string plainHead(std::string_view content);

/// Where the outermost element begins in a plain head; npos when it does not begin there.
std::size_t findRootElement(std::string_view head) noexcept;

}  // namespace readers::xmi
