#include "Document.h"

#include "DocumentCheck.h"

namespace cases {

std::vector<std::string> findFaults(const std::string& document, bool mayDangle) {
    using oimcheck::Finding;
    std::vector<std::string> faults;
    oimcheck::DocumentCheck check([&](const Finding& finding) {
        if (finding.severity == Finding::Severity::ERROR || !mayDangle) {
            faults.push_back("line " + std::to_string(finding.line) + ": " + finding.text);
        }
    });
    check.feed(document.data(), document.size());
    check.finish();
    return faults;
}

}  // namespace cases
