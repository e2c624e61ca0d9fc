#pragma once

#include "ZOR.h"

namespace xmi_test {

/// Exports the model in every view, as a host does. The test fails when a document is at fault or when the
/// model is another one afterwards.
void exportInEveryView(ZORModel& model);

}  // namespace xmi_test
