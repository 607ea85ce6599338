/** @file
 * What the processor can do beyond the baseline that the library is compiled for.
 *
 * Where code has a variant for newer instructions, that variant is compiled only if
 * NOLK_CORE_X86_VECTORS is defined, and called only if the question here says yes. Everything also
 * exists in portable form.
 */
#ifndef NOLK_CORE_FOUNDATION_PROCESSOR_H
#define NOLK_CORE_FOUNDATION_PROCESSOR_H

#if defined(__x86_64__) && defined(__SSE2__) && !defined(NOLK_CORE_PORTABLE_SCAN)
#define NOLK_CORE_X86_VECTORS
#endif

namespace nolk::processor {

#ifdef NOLK_CORE_X86_VECTORS

/** Vectors of 32 bytes, and the bit counts that came along with them. */
inline bool hasAvx2() {
    __builtin_cpu_init();  // static initialisers of other libraries may come first
    return __builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("bmi") != 0 &&
           __builtin_cpu_supports("popcnt") != 0;
}

/** Products of polynomials over bits, and shuffles of bytes. */
inline bool hasCarryLessProduct() {
    __builtin_cpu_init();
    return __builtin_cpu_supports("pclmul") != 0 && __builtin_cpu_supports("ssse3") != 0;
}

#endif

}  // namespace nolk::processor

#endif
