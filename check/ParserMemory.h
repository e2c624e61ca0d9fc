#pragma once

namespace oimcheck {

/// Tells in `hasFailed` of allocations that fail in libxml2. It goes on from some of them as if nothing had
/// happened (a name that its dictionary has lost is another name from then on), and what it says then is
/// wrong.
class ParserMemory {
  public:
    /// Watches from now on, for good; called before libxml2 is set up.
    static void watch() noexcept;
    /// Whether an allocation has failed in this thread since `forget`.
    static bool hasFailed() noexcept;
    static void forget() noexcept;
};

}  // namespace oimcheck
