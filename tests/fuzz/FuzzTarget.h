#pragma once

#include <QByteArray>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

// Takes bytes of any kind to where they come in from outside the program, and checks whatever has to hold for all of
// them. Each target defines it; the fuzzer calls it with bytes that it makes up, CorpusReplay with those that are kept.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace zelmo::fuzz {

inline QByteArray copyOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)};
}

// Ends the process when the condition does not hold, which both callers take for a finding.
inline void require(bool condition, const char* text) {
    if (condition)
        return;
    std::fprintf(stderr, "does not hold: %s\n", text);
    std::abort();
}

} // namespace zelmo::fuzz
