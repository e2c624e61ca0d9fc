// readers/model_document/: the reader of model documents, models written down as JSON
// (docs/model-document.md). Tables say what a document may hold (Vocabulary.h); a builder fills the model
// from them, a resolver ties its references, and only when a document is refused is its text searched for the
// place. Nothing here writes documents.
#pragma once

#include "Reader.h"

namespace readers {

const Reader& modelDocumentReader();

}  // namespace readers
