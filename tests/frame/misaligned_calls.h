// Calls into the 32-bit DLL as a host built by another compiler may: the
// standard calling convention with the stack only 4-byte aligned at the
// call. The DLL's entry points must realign it before any SSE instruction
// that needs 16 bytes.
#pragma once

#include <cstdint>
#include <vector>

namespace quelcnv::test {

// Calls the standard-call function with these 4-byte arguments, the stack
// pointer `offset` bytes (0, 4, 8 or 12) past a 16-byte boundary at the call;
// the function's result (meaningless for one that returns nothing).
int callWithStackOffset(void (*function)(), const std::vector<std::uint32_t>& arguments,
                        unsigned offset);

}  // namespace quelcnv::test
