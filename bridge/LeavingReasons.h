#pragma once

#include "MicrosoftSqlServerMdsMdcExport.h"

// Reasons in the form of LeavingReason's text: "{0}" stands for the name of another object,
// "{view}" for that of the view.

/// Why a view has nothing for objects of this type; null: it has something.
const char* findMissingKind(ZORElementType type, MDCSubjectArea area);

/// That an object goes with what it belongs to, which is of this type.
const char* describePart(ZORElementType owner, MDCSubjectArea area);

/// Why objects that no filter is asked about are left out because of what they belong to; or null.
const char* findPlaceRule(ZORElementType type, ZORElementType owner, MDCSubjectArea area);

/// That a foreign key goes with its relationship: of several that share it, one decides.
const char* describeRelationshipOf(const ZORForeignKey& key);
