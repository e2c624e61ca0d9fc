#pragma once

namespace oimcheck {

/// Makes libxml2 ready. To be called before anything of it is used; throws std::bad_alloc.
void prepareParserLibrary();

/// What libxml2 makes of memory that it is refused is now and then another finding, or none. So its requests
/// are watched, for each thread: the first of these begins anew, the second throws std::bad_alloc when one
/// was refused since.
void forgetRefusedMemory() noexcept;
void throwIfMemoryWasRefused();

/// In the place of a printer of libxml2's: what comes as plain words comes as an error, too, or as a parser
/// that has given up.
void ignoreWords(void* context, const char* format, ...);

}  // namespace oimcheck
