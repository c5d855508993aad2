#include "frame/encoding_exception_translator.h"

#include "kai18n/frame/result_codes.h"
#include "kai18n/platform/kalib.h"
#include "platform/encoding/encoding_exceptions.h"

// The handlers stand from the most derived type to the base, so each exception
// is caught by the first entry that names its own type.
void kaTranslateEncodingException() {
    try {
        throw;
    } catch (const InvalidOutputEncoding&) {
        LUException::Raise(LU_E_ENCODING, "Invalid ouput encoding");
    } catch (const TextEncodingID::Malformed&) {
        LUException::Raise(LU_E_ENCODING, "Malformed encoding variation");
    } catch (const TextEncodingID::TooManyVariations&) {
        LUException::Raise(LU_E_ENCODING, "Too many encoding variations");
    } catch (const EncodingVariationID::Malformed&) {
        LUException::Raise(LU_E_ENCODING, "Malformed encoding variation");
    } catch (const EncodingVariationID::TooManyVariations&) {
        LUException::Raise(LU_E_ENCODING, "Too many encoding variations");
    } catch (const EncodingNotLoaded&) {
        LUException::Raise(LU_E_ENCODING, "Encoding not loaded");
    } catch (const UnicodeLibraryException&) {
        LUException::Raise(LU_E_ENCODING, "Unicode library error");
    } catch (const bt_out_of_range&) {
        LUException::Raise(LU_E_OUT_OF_RANGE, "Unicode library error");
    } catch (const bt_exception&) {
        LUException::Raise(LU_E_ENCODING, "Unicode library error");
    }
}
