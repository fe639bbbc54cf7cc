# Tests that look at the sources and at what was built instead of running it.

set(checks ${CMAKE_CURRENT_SOURCE_DIR}/checks)

find_package(Python3 COMPONENTS Interpreter)
if(Python3_FOUND)
  add_test(NAME source_rules COMMAND ${Python3_EXECUTABLE} ${checks}/source_rules.py ${PROJECT_SOURCE_DIR})
  # The page is made from the header.
  add_test(NAME reference_page COMMAND ${Python3_EXECUTABLE}
    ${PROJECT_SOURCE_DIR}/docs/make_reference.py --check
    ${PROJECT_SOURCE_DIR}/include/qmxexif.h ${PROJECT_SOURCE_DIR}/docs/reference.md)
  # The pages of the makers name every label and tag.
  add_test(NAME maker_pages
    COMMAND ${Python3_EXECUTABLE} ${checks}/maker_pages.py ${PROJECT_SOURCE_DIR})
endif()

if(CMAKE_OBJDUMP AND MINGW)
  add_test(NAME module_check COMMAND ${CMAKE_COMMAND} -DOBJDUMP=${CMAKE_OBJDUMP}
    -DMODULE=$<TARGET_FILE:qmxexif> "-DEXPORTS=${QMX_EXPORTS}"
    -DMOST_BYTES=$<$<CONFIG:Release>:716800> -P ${checks}/windows_module.cmake)
elseif(CMAKE_NM AND NOT WIN32)
  add_test(NAME module_check COMMAND ${CMAKE_COMMAND} -DNM=${CMAKE_NM}
    -DMODULE=$<TARGET_FILE:qmxexif> "-DEXPORTS=${QMX_EXPORTS}" -P ${checks}/native_module.cmake)
  add_test(NAME wide_functions COMMAND ${CMAKE_COMMAND} -DNM=${CMAKE_NM}
    -DLIBRARY=$<TARGET_FILE:qmxcore> -P ${checks}/wide_functions.cmake)
endif()

# Every header of the sources compiles by itself.
if(QMX_CHECK_HEADERS)
  file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE ${PROJECT_SOURCE_DIR}/src
    ${PROJECT_SOURCE_DIR}/src/*.h)
  if(NOT WIN32)
    list(FILTER headers EXCLUDE REGEX "^com/")
  endif()
  set(header_sources)
  foreach(header IN LISTS headers)
    string(MAKE_C_IDENTIFIER ${header} stem)
    set(source ${CMAKE_CURRENT_BINARY_DIR}/headers/${stem}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "#include \"${header}\"\n")
    list(APPEND header_sources ${source})
  endforeach()
  if(header_sources)
    add_library(qmx_headers OBJECT ${header_sources})
    target_link_libraries(qmx_headers PRIVATE qmxcore $<TARGET_NAME_IF_EXISTS:qmxcom>)
  endif()
endif()
