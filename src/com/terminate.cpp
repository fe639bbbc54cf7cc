// What ends the process when an exception finds no handler, of which each exported function is one.
// GCC's own way to do it prints the exception's type, and brings 45 KB into the library for that.

#ifdef __MINGW32__

#include <cstdlib>

namespace __gnu_cxx {

void __verbose_terminate_handler() { std::abort(); }

}  // namespace __gnu_cxx

#endif
