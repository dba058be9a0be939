#ifndef ORV_FUZZ_H
#define ORV_FUZZ_H

// What every fuzz target shares. The engine reads its files by name, so each
// input is written under the name the reader asks for into a scratch folder
// made once per process, and removed again after the run: nothing of one
// input may be found by the next. Only the engine's own exceptions are
// refusals; anything else escaping a reader is left to reach libFuzzer,
// which reports it with its stack.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

#include "OrvException.h"

// The limits every run is held to, also when a target is started by hand (to
// reproduce a finding, say); ASAN_OPTIONS and UBSAN_OPTIONS still override.
// Freed blocks wait in a quarantine of 16 MB instead of 256: with the 256 MB
// limit on a run, the default quarantine alone reads as running out of memory.
extern "C" const char* __asan_default_options()
{
    return "detect_leaks=1:halt_on_error=1:quarantine_size_mb=16";
}

extern "C" const char* __ubsan_default_options()
{
    return "halt_on_error=1:print_stacktrace=1";
}

namespace orvfuzz
{
// The scratch folder of this process, an absolute path without a trailing
// '/': made under /tmp on first use, removed at a normal exit.
inline const std::string& ScratchDir()
{
    // Never destroyed, so that the removal at exit can still read it.
    static const std::string* const dir = [] {
        char pattern[] = "/tmp/orvfuzz-XXXXXX";
        const char* made = mkdtemp(pattern);
        if (made == nullptr)
        {
            std::perror("orvfuzz: cannot make a scratch folder under /tmp");
            std::abort();
        }
        std::atexit([] {
            std::error_code ignored;
            std::filesystem::remove_all(ScratchDir(), ignored);
        });
        return new std::string(made);
    }();
    return *dir;
}

// Writes bytes to a file; false when that fails.
inline bool WriteFile(const std::string& path, const void* data, size_t size)
{
    FILE* out = std::fopen(path.c_str(), "wb");
    if (out == nullptr)
        return false;
    const bool written = size == 0 || std::fwrite(data, 1, size, out) == size;
    return std::fclose(out) == 0 && written;
}

// A harness that cannot set up its input has found nothing about the engine:
// it stops at once rather than report every later input as accepted.
[[noreturn]] inline void SetupFailed(const char* what)
{
    std::fprintf(stderr, "orvfuzz: %s\n", what);
    std::abort();
}

// A reader broke a promise that no exception covers (a round trip that does
// not return what went in, a size that does not match): a finding.
[[noreturn]] inline void Finding(const char* what)
{
    std::fprintf(stderr, "orvfuzz: finding: %s\n", what);
    std::abort();
}

// The input, present in the scratch folder under `name` for the life of the
// object.
class ScratchFile
{
public:
    ScratchFile(const char* name, const uint8_t* data, size_t size) : m_path(ScratchDir() + "/" + name)
    {
        if (!WriteFile(m_path, data, size))
            SetupFailed("cannot write the input into the scratch folder");
    }
    ~ScratchFile() { unlink(m_path.c_str()); }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;

private:
    std::string m_path;
};

// Runs the call; an engine exception is the refusal of a bad file and ends it
// quietly. Answers whether the call ran to its end.
template <class Call>
bool Refusable(Call&& call)
{
    try
    {
        call();
        return true;
    }
    catch (const OrvException&)
    {
        return false;
    }
}
} // namespace orvfuzz

#endif
