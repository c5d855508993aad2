#include "platform/encoding/engine_status.h"

#include <string>

#include "platform/encoding/encoding_exceptions.h"

void kaCheckEngineStatus(UErrorCode status, EngineStep step, const char* subject) {
    if (U_SUCCESS(status)) return;
    std::string message = step == EngineStep::kOpen     ? "cannot open the converter of "
                          : step == EngineStep::kDecode ? "cannot decode from "
                                                        : "cannot encode to ";
    message += subject != nullptr ? subject : "(no name)";
    message += ": ";
    message += u_errorName(status);
    if (step == EngineStep::kOpen) throw EncodingNotLoaded(message);
    switch (status) {
        case U_UNSUPPORTED_ERROR:
        case U_NO_WRITE_PERMISSION:
            if (step == EngineStep::kEncode) throw InvalidOutputEncoding(message);
            break;
        case U_INDEX_OUTOFBOUNDS_ERROR:
        case U_ILLEGAL_ARGUMENT_ERROR:
            throw bt_out_of_range(message);
        default:
            break;
    }
    throw UnicodeLibraryException(message);
}
