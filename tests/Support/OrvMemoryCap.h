#ifndef ORV_MEMORY_CAP_H
#define ORV_MEMORY_CAP_H

// Out-of-memory on demand, for tests that run in a child process (death
// tests): the process's address space is capped at what it uses now plus a
// little, and that little is then taken in small blocks and kept, so that the
// next sizeable allocation fails. Not usable under the address sanitizer,
// whose own reservations a cap defeats (ORV_MEMORY_CAP_WORKS says so).

#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#if defined(__SANITIZE_ADDRESS__)
#define ORV_MEMORY_CAP_WORKS 0
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ORV_MEMORY_CAP_WORKS 0
#endif
#endif
#ifndef ORV_MEMORY_CAP_WORKS
#define ORV_MEMORY_CAP_WORKS 1
#endif

// `spare` bytes stay free for small allocations (an object, a message).
inline void CapMemory(unsigned long spare = 0)
{
    long pages = 0;
    FILE* statm = std::fopen("/proc/self/statm", "r");
    if (statm == nullptr || std::fscanf(statm, "%ld", &pages) != 1)
        std::_Exit(3);
    std::fclose(statm);
    const rlim_t cap = static_cast<rlim_t>(pages) * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + (1u << 20);
    const rlimit limit = {cap, cap};
    if (setrlimit(RLIMIT_AS, &limit) != 0)
        std::_Exit(4);
    void* reserve = spare != 0 ? std::malloc(spare) : nullptr;
    static void* volatile last = nullptr;
    do
        last = std::malloc(64);
    while (last != nullptr);
    std::free(reserve);
}

#endif
