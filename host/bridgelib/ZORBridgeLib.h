// libZORBridgeLib: what a bridge is written with and what its host calls it through.
// Here are files, the base of XML writers, options and the interface of export bridges. Finding, loading and
// running a bridge is the manager's business; what a bridge writes is the bridge's.
#pragma once

#include "ZORBridgeInterface.h"
#include "ZORFile.h"
#include "ZORNearest.h"
#include "ZOROption.h"
#include "ZORXMLWriter.h"
