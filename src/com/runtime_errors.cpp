// What GCC's run-time library does about errors that end a call, in as few words as a library
// needs.  Its own versions bring a hundred kilobytes: strings for messages that nobody reads, and
// the printing of an exception's type before the process ends.  Linked into the DLL alone; a
// function that is missing here shows as one that is defined twice.

#ifdef __MINGW32__

#include <cstdlib>
#include <new>

namespace __gnu_cxx {

// No exception passes an exported function.
void __verbose_terminate_handler() { std::abort(); }

}  // namespace __gnu_cxx

// Containers that cannot grow: for the functions at the boundary one failure is like another.
namespace std {

void __throw_bad_alloc() { throw bad_alloc(); }
void __throw_bad_array_new_length() { throw bad_alloc(); }
void __throw_length_error(const char*) { throw bad_alloc(); }
void __throw_logic_error(const char*) { throw bad_alloc(); }
void __throw_out_of_range_fmt(const char*, ...) { throw bad_alloc(); }

}  // namespace std

#endif
