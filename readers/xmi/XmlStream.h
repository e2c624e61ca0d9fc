#pragma once

#include <libxml/xmlreader.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace readers::xmi {

/// The elements and texts of an XML file, one after the other.
///
/// Nothing but the file itself is ever read, document types are refused before the parser sees them, and the
/// depth of nesting is bounded. All faults of the file throw SourceError with the line.
class XmlStream {
  public:
    /// Elements nested deeper than this are refused.
    static constexpr int DEEPEST_ELEMENT = 250;

    enum class Event : std::uint8_t { START, END, TEXT, FINISHED };

    /// `content` outlives the stream.
    explicit XmlStream(std::string_view content);

    Event next();
    /// The element or text that the last event was about; valid until the next one.
    const xmlNode& node() const noexcept { return *node_; }
    /// Where it stands. Exact up to line 65,534, from there on near; in files with very long texts at least
    /// 65,535.
    std::uint32_t line() const noexcept;

  private:
    struct ReaderCloser {
        void operator()(xmlTextReader* reader) const noexcept { xmlFreeTextReader(reader); }
    };
    struct DocumentCloser {
        void operator()(xmlDoc* document) const noexcept { xmlFreeDoc(document); }
    };
    /// The first fault that the parser told of.
    struct Fault {
        int code = 0;
        int line = 0;
        int character = 0;  ///< one that XML does not permit, where the parser tells which
        bool isBehindRoot = false;
        std::string text;
    };

    /// While a stream lives, this thread's handlers of errors that the parser cannot assign to a file, such
    /// as those of converting an encoding. They would be printed otherwise.
    class StrayFaults {
      public:
        explicit StrayFaults(Fault& fault);
        ~StrayFaults();
        StrayFaults(const StrayFaults&) = delete;
        StrayFaults& operator=(const StrayFaults&) = delete;

      private:
        xmlStructuredErrorFunc handler_ = nullptr;
        void* data_ = nullptr;
        xmlGenericErrorFunc printer_ = nullptr;
        void* printerData_ = nullptr;
    };

    static void noteFault(void* data, xmlErrorPtr error) noexcept;
    bool advance();
    bool isFaultOfBytes() const;
    [[noreturn]] void throwFault() const;

    std::string_view content_;
    Fault fault_;
    StrayFaults strayFaults_;
    std::unique_ptr<xmlDoc, DocumentCloser> whole_;  ///< the file, where it is not read piece by piece
    std::unique_ptr<xmlTextReader, ReaderCloser> reader_;
    xmlNode* node_ = nullptr;
    bool endIsDue_ = false;  ///< an element without content has had its start
};

/// A name or text of the parser's as what it is: UTF-8.
inline std::string_view toView(const xmlChar* text) noexcept {
    return text == nullptr ? std::string_view() : std::string_view(reinterpret_cast<const char*>(text));
}

}  // namespace readers::xmi
