// The in-out status of the calendar engine.
//
// An engine operation that can fail takes a UErrorCode by reference. It does
// nothing when the status already reports a failure, and sets it when it
// fails itself, returning a neutral value; the engine never throws for bad
// data. 0 is success; any value above 0 is a failure.
#ifndef KAI18N_CALENDAR_UERROR_H
#define KAI18N_CALENDAR_UERROR_H

enum UErrorCode {
    UErrorNone = 0,
    /// A bad argument, an out-of-range field, an unknown field in add or roll,
    /// a bad era, a bad rule.
    UErrorIllegalArgument = 1,
    /// A calendar object could not be created.
    UErrorMemoryAllocation = 7
};

inline bool U_SUCCESS(UErrorCode status) {
    return status <= UErrorNone;
}
inline bool U_FAILURE(UErrorCode status) {
    return status > UErrorNone;
}

/// The identity of an engine class: the address of its one-byte fgClassID.
typedef const void* UClassID;

#endif  // KAI18N_CALENDAR_UERROR_H
