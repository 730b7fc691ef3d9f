#include <cstdlib>

#ifdef __GLIBCXX__
// The GNU library's own handler prints the name of the exception, which nobody sees in a program without a
// console, and brings 45 kB of demangler for that.
namespace __gnu_cxx {

void __verbose_terminate_handler() {
    std::abort();
}

}  // namespace __gnu_cxx
#endif
