# Installation as a library people link: the shared library with its C header, the
# command-line tool, a CMake package (find_package(quillmark) gives quillmark::quillmark)
# and a pkg-config file. The Python package installs from cmake/QuillmarkPython.cmake.

install(TARGETS quillmark EXPORT quillmarkTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES ${CMAKE_SOURCE_DIR}/include/quillmark/quillmark.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/quillmark)
install(TARGETS quillmark_cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

set(QM_CMAKE_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/quillmark)
install(EXPORT quillmarkTargets NAMESPACE quillmark:: DESTINATION ${QM_CMAKE_PACKAGE_DIR})
configure_package_config_file(${CMAKE_SOURCE_DIR}/cmake/quillmarkConfig.cmake.in
                              ${CMAKE_BINARY_DIR}/quillmarkConfig.cmake
                              INSTALL_DESTINATION ${QM_CMAKE_PACKAGE_DIR})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/quillmarkConfigVersion.cmake
                                 COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_BINARY_DIR}/quillmarkConfig.cmake ${CMAKE_BINARY_DIR}/quillmarkConfigVersion.cmake
        DESTINATION ${QM_CMAKE_PACKAGE_DIR})

# The .pc file finds the prefix from its own place, so `cmake --install --prefix` anywhere
# gives a working file.
set(QM_PKGCONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH QM_PC_TO_PREFIX /${QM_PKGCONFIG_DIR} /)
string(REGEX REPLACE "/$" "" QM_PC_TO_PREFIX "${QM_PC_TO_PREFIX}")
configure_file(${CMAKE_SOURCE_DIR}/cmake/quillmark.pc.in ${CMAKE_BINARY_DIR}/quillmark.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/quillmark.pc DESTINATION ${QM_PKGCONFIG_DIR})

# Consumer tests: install into a prefix inside the build tree, then build a tiny CMake
# project against the package and a tiny C program with pkg-config, and run both. Not in
# sanitized builds, whose library needs the sanitizer runtime loaded first.
if(QUILLMARK_TESTS AND NOT QUILLMARK_SANITIZE AND NOT QUILLMARK_FUZZ)
  add_test(NAME install.consumers
           COMMAND bash ${CMAKE_SOURCE_DIR}/tests/install/consumer_test.sh
                   ${CMAKE_BINARY_DIR} ${CMAKE_SOURCE_DIR} ${CMAKE_C_COMPILER} ${CMAKE_COMMAND}
                   "${QM_PYTHON_INSTALL_DIR}" "${Python3_EXECUTABLE}")
  set_tests_properties(install.consumers PROPERTIES TIMEOUT 300 RUN_SERIAL TRUE)
endif()
