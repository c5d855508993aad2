// Loading and unloading a shared module that lives beside this library.
//
// The locale data module is found in the directory from which the dynamic
// loader took libkai18n itself, so that a build tree and an installed tree
// each use their own module; there is no environment variable and no search
// path of our own. Initialisers of the module run inside kaLoadModule, on the
// calling thread.
#ifndef KAI18N_PLATFORM_MODULE_LOADER_H
#define KAI18N_PLATFORM_MODULE_LOADER_H

#include <string>

/// The directory of this library, with a trailing '/', or an empty string when
/// the loader cannot say.
std::string kaLibraryDirectory();

/// Loads `fileName` from the directory of this library (or by the loader's
/// ordinary search when that directory is unknown), binding every symbol now
/// and keeping the module's symbols to itself. The module's handle, or null on
/// failure. Loading a module that is already loaded adds a count to it.
void* kaLoadModule(const char* fileName);

/// Gives back the count that kaLoadModule took; the module goes when its last
/// count does. False for a null handle or when the loader reports a failure.
bool kaUnloadModule(void* module);

#endif  // KAI18N_PLATFORM_MODULE_LOADER_H
