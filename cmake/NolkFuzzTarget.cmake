# nolk_fuzz_target(<name> SOURCES <file>... CORPUS <directory> [DICTIONARY <file>])
#
# A program around an LLVMFuzzerTestOneInput. With NOLK_BUILD_FUZZERS it is driven by libFuzzer, and
# its test lets it search for NOLK_FUZZ_SECONDS, starting from the committed corpus; what it finds
# on the way stays in the build directory. Without, the program just runs every file of the corpus,
# and that is an ordinary test on both platforms.
#
# The target sees the library's internals: it links the objects, not the shared library.
set(NOLK_FUZZ_SECONDS 20 CACHE STRING "How long the test of a fuzz target searches")

set(NOLK_FUZZ_REPLAY ${CMAKE_CURRENT_LIST_DIR}/../tests/build/FuzzReplay.cpp)

function(nolk_fuzz_target name)
    cmake_parse_arguments(ARG "" "CORPUS;DICTIONARY" "SOURCES" ${ARGN})
    cmake_path(ABSOLUTE_PATH ARG_CORPUS NORMALIZE)
    if(NOT IS_DIRECTORY ${ARG_CORPUS})
        message(FATAL_ERROR "${name} has no corpus in ${ARG_CORPUS}")
    endif()
    add_executable(${name} ${ARG_SOURCES})
    nolk_compile_flags(${name})
    target_link_libraries(${name} PRIVATE nolk_core_internal)
    if(NOT NOLK_BUILD_FUZZERS)
        target_sources(${name} PRIVATE ${NOLK_FUZZ_REPLAY})
        add_test(NAME fuzz.${name}.corpus COMMAND ${name} ${ARG_CORPUS})
        return()
    endif()
    target_link_options(${name} PRIVATE -fsanitize=fuzzer)
    set(found ${CMAKE_CURRENT_BINARY_DIR}/${name}-found)
    file(MAKE_DIRECTORY ${found})
    if(ARG_DICTIONARY)
        cmake_path(ABSOLUTE_PATH ARG_DICTIONARY NORMALIZE)
        set(dictionary -dict=${ARG_DICTIONARY})
    endif()
    add_test(NAME fuzz.${name}.search
             COMMAND ${name} -max_total_time=${NOLK_FUZZ_SECONDS} -timeout=10 -rss_limit_mb=2048
                     -print_final_stats=1 -artifact_prefix=${found}/finding- ${dictionary}
                     ${found} ${ARG_CORPUS})
    math(EXPR timeout "${NOLK_FUZZ_SECONDS} * 2 + 120")
    set_tests_properties(fuzz.${name}.search PROPERTIES TIMEOUT ${timeout})
endfunction()
