// Counting start-up guards.
//
// A service of the library is brought up by the first instance of its guard
// class and taken down when the last instance goes. Any compilation unit that
// uses the service, in the library or in a client, defines one file-static
// instance of the guard, so that the service is up before that unit's own
// static objects and down after them. A guard whose service needs another one
// holds a heap instance of the other guard between its init() and exit().
#ifndef KAI18N_FRAME_INIT_EXIT_H
#define KAI18N_FRAME_INIT_EXIT_H

/// The counting logic of a guard class `Guard`, which declares
///     static int count; static void init(); static void exit();
/// and derives from kaInitExitCounter<Guard>. The count is not locked: guards
/// run while the library is loaded and unloaded, which the platform serialises.
template <class Guard>
class kaInitExitCounter {
  public:
    kaInitExitCounter() {
        const int old = Guard::count;
        Guard::count = old + 1;
        if (old == 0) Guard::init();
    }
    ~kaInitExitCounter() {
        Guard::count -= 1;
        if (Guard::count == 0) Guard::exit();
    }

    kaInitExitCounter(const kaInitExitCounter&) = delete;
    kaInitExitCounter& operator=(const kaInitExitCounter&) = delete;
};

// The start-up journal: every guard's init() notes its class name, so the
// order in which the services came up can be read back (diagnostics, tests).
// It keeps the first kaStartJournalSize notes; it is not locked, like the
// counts, since guards run while the platform serialises load and unload.

const int kaStartJournalSize = 32;
void kaNoteServiceStart(const char* service);
/// How many notes the journal holds.
int kaStartedServiceCount();
/// The note at `index`, from 0; null outside the journal.
const char* kaStartedService(int index);

#endif  // KAI18N_FRAME_INIT_EXIT_H
