// The check of documents: one verdict in whatever portions a document comes, and no finding lost on the way.

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "DocumentCheck.h"

namespace {

using oimcheck::Finding;

constexpr std::uint64_t MOST = 20;

struct Outcome {
    std::vector<Finding> findings;
    oimcheck::Summary summary;
};

void expect(bool condition, const char* what) {
    if (!condition) {
        std::fprintf(stderr, "%s\n", what);
        std::abort();
    }
}

/// Hands the document over in two portions.
Outcome check(const char* bytes, std::size_t size, std::size_t first) {
    Outcome outcome;
    oimcheck::DocumentCheck check([&](const Finding& finding) { outcome.findings.push_back(finding); }, MOST);
    if (check.feed(bytes, first)) {
        check.feed(bytes + first, size - first);
    }
    outcome.summary = check.finish();
    return outcome;
}

/// What a receiver may rely on.
void expectSound(const Outcome& outcome) {
    std::uint64_t errors = 0;
    std::uint64_t notes = 0;
    std::uint64_t findings = 0;
    for (const Finding& finding : outcome.findings) {
        const bool isError = finding.severity == Finding::Severity::ERROR;
        (isError ? errors : notes) += finding.places;
        findings += isError ? 1 : 0;
        expect(finding.places >= 1, "a finding that is nowhere");
        expect(finding.line >= 1 && finding.column >= 1, "a finding without a place");
        expect(!finding.text.empty(), "a finding without a text");
        expect(isError == finding.explanation.empty(), "a note is not explained, or an error is");
    }
    // Beyond the first ones, another encoding and the error that ends the check are told.
    expect(findings <= MOST + 2, "more errors than asked for");
    expect(errors == outcome.summary.errors || (errors >= MOST && errors < outcome.summary.errors),
           "errors are lost");
    expect(notes == outcome.summary.notes, "notes are lost");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const char* const bytes = reinterpret_cast<const char*>(data);
    const Outcome whole = check(bytes, size, size);
    expectSound(whole);
    const Outcome halves = check(bytes, size, size / 2);
    expectSound(halves);
    expect((whole.summary.errors == 0) == (halves.summary.errors == 0),
           "the verdict depends on the portions");
    if (whole.summary.errors == 0) {
        expect(whole.summary.elements == halves.summary.elements &&
                   whole.summary.objects == halves.summary.objects &&
                   whole.summary.references == halves.summary.references &&
                   whole.summary.notes == halves.summary.notes,
               "what the document holds depends on the portions");
    }
    return 0;
}
