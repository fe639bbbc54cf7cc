// Ctrl+C: what is done is still printed and closed properly; a second one ends the process.
#pragma once

namespace qmx {

void CatchInterrupts();
bool WasInterrupted();

}  // namespace qmx
