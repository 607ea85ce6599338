# With NOLK_COVERAGE, a target `coverage` that runs all tests and writes which lines of the library
# they reached: a summary, and coverage.html in the build directory.
if(NOT NOLK_COVERAGE OR NOT PROJECT_IS_TOP_LEVEL)
    return()
endif()

find_program(NOLK_GCOVR gcovr REQUIRED)
add_custom_target(
    coverage
    COMMAND ${CMAKE_COMMAND} --build ${PROJECT_BINARY_DIR}
    COMMAND ${CMAKE_CTEST_COMMAND} --test-dir ${PROJECT_BINARY_DIR} --output-on-failure -j2
    COMMAND ${NOLK_GCOVR} --root ${PROJECT_SOURCE_DIR} --filter ${PROJECT_SOURCE_DIR}/source
            --filter ${PROJECT_SOURCE_DIR}/include --exclude-throw-branches --print-summary
            --html-details ${PROJECT_BINARY_DIR}/coverage.html ${PROJECT_BINARY_DIR}
    WORKING_DIRECTORY ${PROJECT_BINARY_DIR}
    USES_TERMINAL VERBATIM)
