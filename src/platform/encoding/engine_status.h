// Turns a failed status of the ICU converters into the exception type of the
// encoding library.
#ifndef KAI18N_PLATFORM_ENCODING_ENGINE_STATUS_H
#define KAI18N_PLATFORM_ENCODING_ENGINE_STATUS_H

#include <unicode/utypes.h>

/// What the failed call was doing, which decides the exception for some
/// statuses.
enum class EngineStep {
    kOpen,    ///< opening the converter of an encoding
    kDecode,  ///< bytes to UTF-16
    kEncode,  ///< UTF-16 to bytes
};

/// Does nothing for a status that is not a failure. Otherwise throws:
/// EncodingNotLoaded for a converter that cannot be opened;
/// InvalidOutputEncoding when the target encoding cannot be written;
/// bt_out_of_range for an index or size that the engine refuses;
/// UnicodeLibraryException for any other failure. The message names
/// `subject` (an encoding name, or null) and the engine's status.
void kaCheckEngineStatus(UErrorCode status, EngineStep step, const char* subject);

#endif  // KAI18N_PLATFORM_ENCODING_ENGINE_STATUS_H
