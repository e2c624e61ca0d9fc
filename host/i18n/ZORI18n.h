// libZORI18n: catalogues of texts and messages, and the log that messages go to.
// A literal is a static object with a key; what is said to a user comes from one. Printing events is the host
// program's business, and a bridge's own catalogue stands with the bridge.
#pragma once

#include "ZORHostCatalogues.h"
#include "ZORLiterals.h"
#include "ZORLog.h"
#include "ZORStd.h"
