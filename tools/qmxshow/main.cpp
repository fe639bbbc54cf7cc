// qmxshow: the command-line client of qmxexif.dll.
#include <windows.h>

#include <exception>
#include <new>

#include "interrupt.h"
#include "library.h"
#include "options.h"
#include "session.h"
#include "writer.h"

namespace {

using namespace qmx;

int Run(int count, wchar_t** arguments, Writer& out, Writer& err) {
    Options options;
    std::wstring error;
    if (!ParseOptions(count, arguments, options, error)) {
        err.Put("qmxshow: ").Put(error).Put("\nTry qmxshow --help.\n");
        return kNothingDone;
    }
    if (options.help || options.version) {
        out.Put(options.help ? HelpText() : VersionText());
        return kAllFine;
    }
    Library library;
    if (!LoadQmxexif(options.dllPath, library, error)) {
        err.Put("qmxshow: ").Put(error).Put("\n");
        return kNothingDone;
    }
    CatchInterrupts();
    return RunSession(options, library, out, err);
}

// Needs no memory of its own.
void ComplainWithoutMemory(const char* words) {
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), words, static_cast<DWORD>(lstrlenA(words)), &written,
              nullptr);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    try {
        Writer out(GetStdHandle(STD_OUTPUT_HANDLE));
        Writer err(GetStdHandle(STD_ERROR_HANDLE));
        return Run(count, arguments, out, err);
    } catch (const std::bad_alloc&) {
        ComplainWithoutMemory("qmxshow: not enough memory\n");
    } catch (const std::exception&) {
        ComplainWithoutMemory("qmxshow: internal error\n");
    }
    return kNothingDone;
}
