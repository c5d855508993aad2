// printf-style formatting into a ucs2string, with a UTF-16 format.
//
// The conversions follow the wide printf family of the platform the library
// first served, where a wide character was one UTF-16 unit:
//
//   %s %ls %ws %lS %wS  a UTF-16 string, `const unsigned short*`; null prints "(null)"
//   %hs %S %hS          a narrow string, `const char*`; each byte becomes one unit
//   %c %lc %wc %lC %wC  one UTF-16 unit, passed as `int`
//   %hc %C %hC          one narrow character, passed as `int`; its byte becomes one unit
//   %d %i %u %o %x %X   integers; length modifiers hh h l ll j z t L q I I32 I64
//   %e %E %f %F %g %G %a %A   floating point, `double`, or `long double` with L
//   %p                  a pointer
//   %%                  a percent sign
//
// Flags (- + space # 0), width and precision, each also as `*` taken from the
// arguments, apply as in printf. For strings and characters the width and
// precision count UTF-16 units and padding is always blank. Numbers and
// pointers are written by the C runtime under the current C locale.
//
// A conversion that is not in the list above is copied to the result as it
// stands, without taking an argument. `%n` is refused: formatting stops there
// and the call fails.
#ifndef KAI18N_STRINGS_STRPRINTF_H
#define KAI18N_STRINGS_STRPRINTF_H

#include <cstdarg>

#include "kai18n/strings/ucs2string.h"

/// The longest text that strprintf produces, in UTF-16 units.
constexpr unsigned int kStrprintfMaxUnits = 4095;

/// Formats the arguments by `format` (zero-terminated UTF-16) and assigns the
/// result to `target`. Returns the number of UTF-16 units written.
///
/// The result holds at most 4,095 units. If the text would be longer, `target`
/// receives its first 4,095 units and the result is -1. The result is -1 as
/// well, with the text made so far in `target`, for a null format, for `%n`
/// and if the runtime fails to format a number. A `%c` of the unit 0 ends the
/// text in `target` there, although the count includes what follows it.
int strprintf(ucs2string& target, const unsigned short* format, ...);

/// strprintf with the arguments in a va_list, which is read through a copy and
/// so may be used again by the caller.
int vstrprintf(ucs2string& target, const unsigned short* format, va_list args);

#endif  // KAI18N_STRINGS_STRPRINTF_H
