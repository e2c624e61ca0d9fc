#include "ZORBridgeInterface.h"

// Defined here so that each type has one home, which the dynamic_cast between host and plug-in relies on.
ZORBridgeExportInterface::~ZORBridgeExportInterface() = default;
ZORBridgeInspectionInterface::~ZORBridgeInspectionInterface() = default;
