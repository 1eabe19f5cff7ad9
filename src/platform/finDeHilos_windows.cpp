// SPDX-License-Identifier: MIT
// What each thread has for itself (`thread_local`) lies in memory of a key of its own, and is ended
// by means of another. At a thread's end this compiler's library for threads goes through the keys
// in the order in which they were made: with the memory's first, all would be ended that has gone
// already. The memory's is made when the first such thing is asked for; here the other is made
// ahead of whatever the program makes before it starts. Qt keeps what it looks for patterns with
// so.
#include <cxxabi.h>

namespace {

void nada(void * /*que*/) {}

} // namespace

// Named to the linker, which would leave out a file that nobody calls.
extern "C" void parvanel_ordenarFinDeHilos();

[[gnu::constructor(101)]] void parvanel_ordenarFinDeHilos()
{
    static_cast<void>(abi::__cxa_thread_atexit(nada, nullptr, nullptr)); // there is memory now
}
