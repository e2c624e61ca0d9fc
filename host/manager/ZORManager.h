// libZORManager: finding, loading and running bridges, and refusing models that no bridge may see.
// A program that hosts bridges starts here; reading models from sources and talking to users is that
// program's business.
#pragma once

#include "ZORBridgeManager.h"
#include "ZORModelCheck.h"
