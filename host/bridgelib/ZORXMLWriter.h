#pragma once

#include <cstdint>

#include "ZORFile.h"

/// The base of bridges that write XML: the output file, the indentation, and text made fit for a document.
class ZORXMLWriter {
  public:
    ZORXMLWriter() = default;
    virtual ~ZORXMLWriter() = default;
    ZORXMLWriter(const ZORXMLWriter&) = delete;
    ZORXMLWriter& operator=(const ZORXMLWriter&) = delete;

    /// The text as it stands in an attribute value of a UTF-8 document: `&`, `<`, `>` and `"` as entity
    /// references, tab, line feed and carriage return as character references (a reader gives those back as
    /// they were, not as blanks). Each ill-formed UTF-8 sequence (one per maximal subpart, the Unicode
    /// Standard's recommended practice) and each character outside XML 1.0's Char production becomes U+FFFD
    /// and is counted.
    ZORString getXMLText(const ZORString& text);

    /// How many sequences and characters were replaced so far.
    int getConversionFailureCount() const noexcept { return conversionFailures_; }
    /// In how many texts.
    int getFailedTextCount() const noexcept { return failedTexts_; }

    /// The number of elements started by the exports of this process, for showing progress; another thread
    /// may ask. It lags behind by up to some thousands an export.
    static std::uint64_t getElementsStarted() noexcept;

  protected:
    /// Writes `getXMLText` of the text to the file, without the detour.
    void writeXMLText(const ZORString& text);
    /// To be called once for each element.
    void countElement() noexcept {
        if (++elements_ % ELEMENTS_AT_A_TIME == 0) {
            publishElements();
        }
    }

    ZORFile file_;
    /// Written once per nesting level. It starts as the name of the option that replaces it.
    ZORString indentationUnit_{"XML Indentation (pretty printing)"};
    /// The unit, once per open level.
    ZORString currentIndentation_;

  private:
    template <typename Output>
    void convert(std::string_view text, Output& output);
    static void publishElements() noexcept;

    static constexpr std::uint32_t ELEMENTS_AT_A_TIME = 4096;
    std::uint32_t elements_ = 0;
    int conversionFailures_ = 0;
    int failedTexts_ = 0;
};
