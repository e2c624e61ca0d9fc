// libZORStd: strings, containers, the exception and the clock that everything else is built on.
// What belongs here knows nothing of models, files, messages or bridges; those live in the libraries above.
#pragma once

#include "ZORClock.h"
#include "ZORException.h"
#include "ZORHashtable.h"
#include "ZORString.h"
#include "ZORStringHashtable.h"
#include "ZORVector.h"
