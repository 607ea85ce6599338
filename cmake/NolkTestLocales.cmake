# nolk_use_test_locales(<target>...)
#
# Lets programs that test in locales other than C use support/RuntimeLocale.h. Windows has such
# locales; elsewhere they are compiled once from the system's sources of locales.
set(NOLK_TEST_SUPPORT ${CMAKE_CURRENT_LIST_DIR}/../tests/support)
set(NOLK_TEST_LOCALES ${PROJECT_BINARY_DIR}/test-locales)

# Compiles <name>.<charset> into the directory of the test locales.
function(nolk_compile_locale name charset)
    set(result ${NOLK_TEST_LOCALES}/${name}.${charset})
    add_custom_command(
        OUTPUT ${result}/LC_CTYPE
        COMMAND ${CMAKE_COMMAND} -E make_directory ${NOLK_TEST_LOCALES}
        COMMAND ${NOLK_LOCALEDEF} -i ${name} -f ${charset} ${result}
        COMMENT "Compiling the locale ${name} (without its sources, run scripts/setup.sh)"
        VERBATIM)
    add_custom_target(nolk_test_locale_${name}.${charset} DEPENDS ${result}/LC_CTYPE)
    add_dependencies(nolk_test_locales nolk_test_locale_${name}.${charset})
endfunction()

function(nolk_add_test_locales)
    find_program(NOLK_LOCALEDEF localedef REQUIRED)
    mark_as_advanced(NOLK_LOCALEDEF)
    add_custom_target(nolk_test_locales)
    foreach(name de_DE en_US fr_FR cs_CZ ja_JP en_IN)
        nolk_compile_locale(${name} UTF-8)
    endforeach()
    nolk_compile_locale(de_DE ISO-8859-1)
endfunction()

function(nolk_use_test_locales)
    foreach(target IN LISTS ARGN)
        target_include_directories(${target} PRIVATE ${NOLK_TEST_SUPPORT}/..)
        if(WIN32)
            target_sources(${target} PRIVATE ${NOLK_TEST_SUPPORT}/windows/RuntimeLocale.cpp)
            continue()
        endif()
        if(NOT TARGET nolk_test_locales)
            nolk_add_test_locales()
        endif()
        target_sources(${target} PRIVATE ${NOLK_TEST_SUPPORT}/posix/RuntimeLocale.cpp)
        target_compile_definitions(${target} PRIVATE NOLK_TEST_LOCALES="${NOLK_TEST_LOCALES}")
        add_dependencies(${target} nolk_test_locales)
    endforeach()
endfunction()
