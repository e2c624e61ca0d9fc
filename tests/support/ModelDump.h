// tests/support/: what several test programs share: comparing models, building small ones, logs and sinks in
// memory.
#pragma once

#include <string>

#include "ZOR.h"

namespace support {

/// Everything there is to know of a model, as text: every object with its class, all its properties, its
/// lists in their order and all references (by an object's number in the walk), back references, owners and
/// the general pointer (null or not) included. Two models are equal if and only if their dumps are. What is
/// empty, zero or null is left out. References to objects that are no part of the model are told from others
/// and never followed.
std::string dumpModel(const ZORModel& model);

}  // namespace support
