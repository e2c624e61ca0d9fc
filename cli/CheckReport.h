#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "Console.h"
#include "DocumentCheck.h"

namespace cli {

/// Checks a document as its bytes come, and tells what was found when they have all come.
class CheckReport {
  public:
    /// `documentName` is what messages call the document.
    CheckReport(std::string documentName, Console& console);

    /// False when the rest need not be read.
    bool feed(const char* bytes, std::size_t count) { return check_.feed(bytes, count); }
    /// To be called once, after the last bytes: prints the findings.
    const oimcheck::Summary& finish();

    /// What the document holds and how many errors it has, for people and for programs; after `finish`.
    std::string summaryText() const;
    std::string summaryData() const;

  private:
    /// Notes of one kind: on a console that is not verbose, the first one speaks for all.
    struct Kind {
        oimcheck::Finding first;
        std::uint64_t places = 0;
    };

    void take(const oimcheck::Finding& finding);
    /// `places`: in how many it is so.
    void print(const oimcheck::Finding& finding, std::uint64_t places);

    std::string documentName_;
    Console& console_;
    oimcheck::DocumentCheck check_;
    oimcheck::Summary summary_;
    std::vector<oimcheck::Finding> findings_;
    std::uint64_t errorsListed_ = 0;
    std::map<std::string, Kind> notes_;  // by their explanation
};

}  // namespace cli
