#pragma once

#include <cstddef>
#include <string>

#include "ZORManager.h"

namespace bench {

/// The bridge as a host sees it, set to the database view.
class Exporter {
  public:
    Exporter();

    /// Exports the model to the path. Throws when the export fails or logs anything: a benchmark's models are
    /// sound.
    void run(ZORModel& model, const std::string& path);

  private:
    ZORBridge bridge_;
    ZOROptionList options_;
};

/// What an export asks of the memory beside what the model holds, at its peak, in bytes. The document is
/// dropped.
std::size_t measurePeakMemory(Exporter& exporter, ZORModel& model);

}  // namespace bench
