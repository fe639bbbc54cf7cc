# GoogleTest is built with our own switches, which change data layout (-fshort-wchar) and
# instrumentation.
if(EXISTS ${QMX_GOOGLETEST_DIR}/CMakeLists.txt)
  set(INSTALL_GTEST OFF CACHE BOOL "" FORCE)
  set(gtest_force_shared_crt OFF CACHE BOOL "" FORCE)
  add_subdirectory(${QMX_GOOGLETEST_DIR} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
else()
  message(WARNING "No GoogleTest in ${QMX_GOOGLETEST_DIR} (QMX_GOOGLETEST_DIR): only the checks run")
endif()
