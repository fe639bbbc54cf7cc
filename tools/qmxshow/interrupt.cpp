#include "interrupt.h"

#include <windows.h>

#include <atomic>

namespace qmx {
namespace {

std::atomic<bool> interrupted = false;

// Runs on a thread of the system's.
BOOL WINAPI OnControl(DWORD kind) {
    if (kind != CTRL_C_EVENT && kind != CTRL_BREAK_EVENT) return FALSE;
    return !interrupted.exchange(true);
}

}  // namespace

void CatchInterrupts() { SetConsoleCtrlHandler(OnControl, TRUE); }

bool WasInterrupted() { return interrupted; }

}  // namespace qmx
