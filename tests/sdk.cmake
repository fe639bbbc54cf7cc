# What developers get: the wrapper, and the packages by which build systems find the library.

if(TARGET gmock_main)
  add_executable(qmx_wrapper sdk/wrapper_test.cpp ${support_sources})
  target_include_directories(qmx_wrapper PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
  target_link_libraries(qmx_wrapper PRIVATE qmxexif qmxcore gmock_main)
  add_test(NAME qmx_wrapper COMMAND qmx_wrapper)
  set_tests_properties(qmx_wrapper PROPERTIES ENVIRONMENT "${test_environment}")
endif()

# A client's project would have to be built with the same sanitizers.
if(QMX_SANITIZE OR MSVC)
  return()
endif()
find_program(QMX_PKG_CONFIG pkg-config)
foreach(tree IN ITEMS build install)
  set(install $<STREQUAL:${tree},install>)
  add_test(NAME find_package_${tree} COMMAND ${CMAKE_COMMAND}
    -DBUILD=${PROJECT_BINARY_DIR} -DINSTALL=${install} -DVERSION=${PROJECT_VERSION}
    -DMODULE=$<TARGET_FILE:qmxexif> -DWORK=${CMAKE_CURRENT_BINARY_DIR}/consumer_${tree}
    -DGENERATOR=${CMAKE_GENERATOR} -DTOOLCHAIN=${CMAKE_TOOLCHAIN_FILE}
    -DC_COMPILER=${CMAKE_C_COMPILER} -DCXX_COMPILER=${CMAKE_CXX_COMPILER}
    -DCCACHE=$<$<BOOL:${QMX_CCACHE}>:${QMX_CCACHE}>
    -DPKG_CONFIG=$<$<BOOL:${QMX_PKG_CONFIG}>:${QMX_PKG_CONFIG}>
    -DSAMPLE=${PROJECT_SOURCE_DIR}/tools/sample/sample.jpg
    -DEMULATOR=${CMAKE_CROSSCOMPILING_EMULATOR} -P ${CMAKE_CURRENT_SOURCE_DIR}/sdk/consumer.cmake)
endforeach()

# The packages.  Debian has no vcpkg: its port runs with stand-ins.
find_program(QMX_CLANG clang)
find_program(QMX_LLD_LINK lld-link)
if(MINGW AND TARGET qmxexif_msvc_import AND TARGET qmxshow)
  set(arguments -DBUILD=${PROJECT_BINARY_DIR} -DGENERATOR=${CMAKE_GENERATOR}
    -DSAMPLE_DIR=${PROJECT_SOURCE_DIR}/tools/sample -DEMULATOR=${CMAKE_CROSSCOMPILING_EMULATOR}
    -DVERSION=${PROJECT_VERSION} -DPORT_DIR=${PROJECT_SOURCE_DIR}/packaging/vcpkg/qmxexif)
  if(QMX_CLANG AND QMX_LLD_LINK)
    list(APPEND arguments -DCLANG=${QMX_CLANG})
    add_test(NAME find_package_msvc COMMAND ${CMAKE_COMMAND} ${arguments}
      -DWORK=${CMAKE_CURRENT_BINARY_DIR}/consumer_msvc
      -P ${CMAKE_CURRENT_SOURCE_DIR}/sdk/msvc_consumer.cmake)
  endif()
  add_test(NAME vcpkg_port COMMAND ${CMAKE_COMMAND} ${arguments}
    -DWORK=${CMAKE_CURRENT_BINARY_DIR}/vcpkg_port
    -P ${CMAKE_CURRENT_SOURCE_DIR}/sdk/vcpkg_port.cmake)
endif()
if(TARGET nuget)
  add_test(NAME nuget COMMAND ${Python3_EXECUTABLE} ${CMAKE_CURRENT_SOURCE_DIR}/sdk/nuget_test.py
    ${CMAKE_COMMAND} ${PROJECT_BINARY_DIR} ${PROJECT_VERSION})
endif()

# The examples, by their own run scripts.
function(qmx_test_example name expected)
  add_test(NAME example_${name} COMMAND ${Python3_EXECUTABLE}
    ${CMAKE_CURRENT_SOURCE_DIR}/sdk/example_test.py ${PROJECT_SOURCE_DIR}/examples/${name}/run
    ${PROJECT_BINARY_DIR} ${PROJECT_SOURCE_DIR}/tools/sample/sample.jpg
    ${CMAKE_CURRENT_SOURCE_DIR}/sdk/${expected} ${ARGN})
  set_tests_properties(example_${name} PROPERTIES SKIP_RETURN_CODE 77)
endfunction()
if(Python3_FOUND AND NOT CMAKE_HOST_WIN32)
  if(WIN32)
    set(examples c cpp node)
    qmx_test_example(script example_script.txt)
  else()
    set(examples python csharp)
  endif()
  foreach(example IN LISTS examples)
    qmx_test_example(${example} example.txt ${PROJECT_BINARY_DIR}/examples/${example}/preview.jpg)
  endforeach()
endif()
