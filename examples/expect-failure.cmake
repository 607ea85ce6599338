# Runs PROGRAM on DOCUMENT and wants exit status 1, nothing on standard output, and one line on
# standard error in which the pattern LINE is found.
execute_process(COMMAND ${EMULATOR} ${PROGRAM} ${DOCUMENT} RESULT_VARIABLE status
                OUTPUT_VARIABLE output ERROR_VARIABLE error)
string(REPLACE "\r\n" "\n" error "${error}")
if(NOT status EQUAL 1)
    message(FATAL_ERROR "exit status ${status}: ${output}${error}")
endif()
if(NOT output STREQUAL "")
    message(FATAL_ERROR "standard output is not empty: ${output}")
endif()
if(NOT error MATCHES "^[^\n]*${LINE}[^\n]*\n$")
    message(FATAL_ERROR "no single line with '${LINE}': ${error}")
endif()
