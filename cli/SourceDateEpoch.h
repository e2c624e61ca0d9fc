#pragma once

namespace cli {

/// Stops the clock of documents at the moment that the environment variable SOURCE_DATE_EPOCH names (seconds
/// since 1970), where it is set and not empty. Throws Failure when it names none.
void applySourceDateEpoch();

}  // namespace cli
