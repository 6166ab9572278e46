# The Python package `quillmark`: an extension module `_quillmark` (pybind11 over the
# static library) and the pure-Python part beside it in python/quillmark. It is built for
# the system's interpreter (/usr/bin/python3, where Debian's numpy, pandas and matplotlib
# live) unless Python3_EXECUTABLE names another one, and skipped with a message when
# pybind11, the Python headers or numpy are missing.

# A sanitized build leaves it out: its extension could not load into a plain interpreter.
if(QUILLMARK_SANITIZE OR QUILLMARK_FUZZ)
  set(QM_PYTHON_DEFAULT OFF)
else()
  set(QM_PYTHON_DEFAULT ON)
endif()
option(QUILLMARK_PYTHON "Build the Python package" ${QM_PYTHON_DEFAULT})
set(QM_PYTHON_INSTALL_DIR "")
set(QM_PYTHON_BUILT OFF)

if(QUILLMARK_PYTHON)
  if(NOT Python3_EXECUTABLE AND EXISTS /usr/bin/python3)
    set(Python3_EXECUTABLE /usr/bin/python3 CACHE FILEPATH "Interpreter of the Python package")
  endif()
  find_package(Python3 COMPONENTS Interpreter Development.Module QUIET)
  if(Python3_FOUND)
    find_package(pybind11 CONFIG QUIET)
    execute_process(COMMAND ${Python3_EXECUTABLE} -c "import numpy"
                    RESULT_VARIABLE QM_NUMPY_MISSING OUTPUT_QUIET ERROR_QUIET)
  endif()
  if(NOT Python3_FOUND)
    message(STATUS "Python package skipped: no Python 3 interpreter with headers (python3-dev)")
  elseif(NOT pybind11_FOUND)
    message(STATUS "Python package skipped: pybind11 not found (pybind11-dev)")
  elseif(QM_NUMPY_MISSING)
    message(STATUS "Python package skipped: numpy missing for ${Python3_EXECUTABLE} (python3-numpy)")
  else()
    set(QM_PYTHON_BUILT ON)
  endif()
endif()

if(QM_PYTHON_BUILT)
  message(STATUS "Python package built for ${Python3_EXECUTABLE}")
  set(QM_PYTHON_BUILD_DIR ${CMAKE_BINARY_DIR}/python)
  pybind11_add_module(_quillmark ${CMAKE_SOURCE_DIR}/python/_quillmark.cpp)
  target_link_libraries(_quillmark PRIVATE quillmark_static)
  set_target_properties(_quillmark PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${QM_PYTHON_BUILD_DIR}/quillmark)

  # The pure-Python modules are copied beside the extension, so the build tree holds an
  # importable package: PYTHONPATH=<build>/python.
  file(GLOB QM_PYTHON_SOURCES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/python/quillmark/*.py)
  add_custom_target(quillmark_python_files ALL
    COMMAND ${CMAKE_COMMAND} -E make_directory ${QM_PYTHON_BUILD_DIR}/quillmark
    COMMAND ${CMAKE_COMMAND} -E copy_if_different ${QM_PYTHON_SOURCES} ${QM_PYTHON_BUILD_DIR}/quillmark
    DEPENDS ${QM_PYTHON_SOURCES})
  add_dependencies(_quillmark quillmark_python_files)

  # Into the prefix's place of the system's Python path: /usr/lib/python3/dist-packages
  # for the prefix /usr, <prefix>/lib/python3.X/dist-packages for /usr/local and others.
  if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
    set(QM_PYTHON_INSTALL_DEFAULT lib/python3/dist-packages)
  else()
    set(QM_PYTHON_INSTALL_DEFAULT lib/python${Python3_VERSION_MAJOR}.${Python3_VERSION_MINOR}/dist-packages)
  endif()
  set(QUILLMARK_PYTHON_INSTALL_DIR ${QM_PYTHON_INSTALL_DEFAULT} CACHE STRING
      "Install folder of the Python package, relative to the prefix")
  set(QM_PYTHON_INSTALL_DIR ${QUILLMARK_PYTHON_INSTALL_DIR})
  install(TARGETS _quillmark LIBRARY DESTINATION ${QM_PYTHON_INSTALL_DIR}/quillmark)
  install(FILES ${QM_PYTHON_SOURCES} DESTINATION ${QM_PYTHON_INSTALL_DIR}/quillmark)

  if(QUILLMARK_TESTS)
    add_test(NAME python.pytest
             COMMAND ${Python3_EXECUTABLE} -m pytest -q -p no:cacheprovider ${CMAKE_SOURCE_DIR}/tests/python)
    set_tests_properties(python.pytest PROPERTIES TIMEOUT 600 ENVIRONMENT
      "PYTHONPATH=${QM_PYTHON_BUILD_DIR};MPLBACKEND=Agg;QM_EXAMPLES_DIR=${CMAKE_SOURCE_DIR}/examples;QM_CLI_PROGRAM=$<TARGET_FILE:quillmark_cli>")
  endif()
endif()
