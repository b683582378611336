#include "tests/frame/misaligned_calls.h"

namespace quelcnv::test {

// The arguments are copied below a 16-byte boundary less `offset`, the
// function is called, and the stack pointer comes back from edi, which the
// callee keeps, as it keeps ebx and esi.
int callWithStackOffset(void (*function)(), const std::vector<std::uint32_t>& arguments,
                        unsigned offset) {
    const std::uint32_t* words = arguments.data();
    unsigned count = static_cast<unsigned>(arguments.size());
    int result = 0;
    __asm__ volatile(
        "movl %%esp, %%edi\n\t"
        "leal (,%%ecx,4), %%eax\n\t"
        "subl %%eax, %%esp\n\t"
        "andl $-16, %%esp\n\t"
        "subl $16, %%esp\n\t"
        "addl %%edx, %%esp\n\t"
        "1:\n\t"
        "testl %%ecx, %%ecx\n\t"
        "jz 2f\n\t"
        "decl %%ecx\n\t"
        "movl (%%esi,%%ecx,4), %%eax\n\t"
        "movl %%eax, (%%esp,%%ecx,4)\n\t"
        "jmp 1b\n\t"
        "2:\n\t"
        "call *%%ebx\n\t"
        "movl %%edi, %%esp\n\t"
        : "=&a"(result), "+c"(count), "+d"(offset)
        : "b"(function), "S"(words)
        : "edi", "memory", "cc", "xmm0", "xmm1", "xmm2", "xmm3", "xmm4", "xmm5", "xmm6", "xmm7");
    return result;
}

}  // namespace quelcnv::test
