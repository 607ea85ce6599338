# How everything in this tree is compiled.

# nolk_compile_flags(<target>)
# The warnings and code generation flags of a target of this tree. Every target of our own calls it;
# libraries of others that are built along with it (GoogleTest) don't.
function(nolk_compile_flags target)
    set(gcc $<CXX_COMPILER_ID:GNU>)
    target_compile_options(
        ${target}
        PRIVATE -Wall
                -Wextra
                -Wpedantic
                $<$<BOOL:${NOLK_WARNINGS_AS_ERRORS}>:-Werror>
                # A lock or counter may be used before its constructor runs: what was written into
                # it by then must not be thought dead. Clang never takes such stores away.
                $<${gcc}:-flifetime-dse=1>
                # GCC 12 takes "x" + std::string for an overlapping copy (its bug 105651).
                $<$<AND:${gcc},$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>
                ${NOLK_PREFIX_MAP})
endfunction()

# Source locations in exceptions, debug information and assertions name files from the top of the
# tree on, wherever it was built. What coverage writes down keeps the real places, so that the
# sources are found again.
set(map -ffile-prefix-map)
if(NOLK_COVERAGE)
    set(map -fmacro-prefix-map)
endif()
set(NOLK_PREFIX_MAP ${map}=${PROJECT_BINARY_DIR}=. ${map}=${PROJECT_SOURCE_DIR}/=)

# Sanitizers and coverage are of use only where all code has them, GoogleTest included.
if(NOLK_SANITIZE)
    add_compile_options(-fsanitize=${NOLK_SANITIZE} -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${NOLK_SANITIZE})
endif()
if(NOLK_BUILD_FUZZERS)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(NOLK_COVERAGE)
    add_compile_options(--coverage -fprofile-update=atomic)
    add_link_options(--coverage)
endif()

if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(NOLK_CCACHE ccache)
    mark_as_advanced(NOLK_CCACHE)
    if(NOLK_CCACHE)
        set(CMAKE_CXX_COMPILER_LAUNCHER ${NOLK_CCACHE})
        set(CMAKE_C_COMPILER_LAUNCHER ${NOLK_CCACHE})
    endif()
endif()
