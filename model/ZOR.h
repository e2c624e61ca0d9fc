// libZOR: the source model that readers fill and bridges read.
// Here are its classes, the walk over them, and the few functions that answer questions about them. How a
// model is read from somewhere or written to somewhere, and whether it is sound, is decided elsewhere.
#pragma once

#include "ZORFunctions.h"
#include "ZORPackages.h"
#include "ZORPositions.h"
