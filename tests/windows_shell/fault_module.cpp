// A library that faults on purpose, so that a test sees the fault handler
// name the module in which a fault happened, as it would a language module.
#include <windows.h>

#include <cstdint>

namespace {

// Read at run time, so the compiler cannot replace the fault by a trap.
volatile std::uintptr_t gNullAddress = 0;

}  // namespace

extern "C" __declspec(dllexport) void WriteNull() { *reinterpret_cast<volatile int*>(gNullAddress) = 1; }
