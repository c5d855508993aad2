#ifndef KAI18N_FRAME_ENCODING_EXCEPTION_TRANSLATOR_H
#define KAI18N_FRAME_ENCODING_EXCEPTION_TRANSLATOR_H

/// Call only from inside a catch handler. Rethrows the exception being handled;
/// an exception of the encoding library leaves as an LUException with its code
/// and message, any other exception leaves unchanged.
[[noreturn]] void kaTranslateEncodingException();

#endif  // KAI18N_FRAME_ENCODING_EXCEPTION_TRANSLATOR_H
