// The start-up journal of the counting guards.
#include "kai18n/frame/init_exit.h"

namespace {
// Constant-initialised: valid before any of the library's static objects.
const char* g_notes[kaStartJournalSize] = {};
int g_noteCount = 0;
}  // namespace

void kaNoteServiceStart(const char* service) {
    if (g_noteCount < kaStartJournalSize) g_notes[g_noteCount++] = service;
}

int kaStartedServiceCount() {
    return g_noteCount;
}

const char* kaStartedService(int index) {
    return index >= 0 && index < g_noteCount ? g_notes[index] : nullptr;
}
