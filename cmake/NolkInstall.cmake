# What `cmake --install` lays down: the library, its headers, and what find_package(nolk_core) and
# pkg-config read. The tree may be moved as a whole afterwards.
include(CMakePackageConfigHelpers)

install(TARGETS nolk_core EXPORT nolk_core-targets
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
if(NOT WIN32)
    install(FILES $<TARGET_FILE_DIR:nolk_core>/libnolk_core.so DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/nolk DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        FILES_MATCHING PATTERN "*.h")

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/nolk_core)
install(EXPORT nolk_core-targets NAMESPACE nolk:: DESTINATION ${package_dir})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/nolk_core-config.cmake.in
                              ${PROJECT_BINARY_DIR}/package/nolk_core-config.cmake
                              INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/package/nolk_core-config-version.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/package/nolk_core-config.cmake
              ${PROJECT_BINARY_DIR}/package/nolk_core-config-version.cmake
        DESTINATION ${package_dir})

# pkg-config takes the prefix from where the file is found.
cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_LIBDIR BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX}
           OUTPUT_VARIABLE libdir)
cmake_path(RELATIVE_PATH CMAKE_INSTALL_FULL_INCLUDEDIR BASE_DIRECTORY ${CMAKE_INSTALL_PREFIX}
           OUTPUT_VARIABLE includedir)
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX
           BASE_DIRECTORY ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig OUTPUT_VARIABLE to_prefix)
configure_file(${CMAKE_CURRENT_LIST_DIR}/nolk_core.pc.in ${PROJECT_BINARY_DIR}/package/nolk_core.pc
               @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/package/nolk_core.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
