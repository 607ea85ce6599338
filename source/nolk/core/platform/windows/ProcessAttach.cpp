// What the library does when a process loads it, beside running its static initialisers.

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

extern "C" BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, LPVOID /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) {
        // The library keeps nothing per thread, so the start and end of threads needn't reach it.
        DisableThreadLibraryCalls(library);
    }
    return TRUE;
}
