// The per-thread cache of engine converters, seen from outside.
#ifndef KAI18N_PLATFORM_ENCODING_CONVERTER_CACHE_H
#define KAI18N_PLATFORM_ENCODING_CONVERTER_CACHE_H

/// How many converters the calling thread's cache holds open; 0 once the
/// thread's cache has been closed at the end of the thread.
unsigned int kaCachedConverterCount();

#endif  // KAI18N_PLATFORM_ENCODING_CONVERTER_CACHE_H
