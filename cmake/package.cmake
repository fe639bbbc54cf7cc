# What developers get: the headers, import libraries, and the files by which CMake and pkg-config
# find them, in an installed tree and, for CMake, in the build tree as well.
#
#   cmake --install build/<preset> --prefix DIR [--component runtime|development|tools]
#
# The components are also what the packages in packaging/ are made of.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/qmxexif)
set(headers ${PROJECT_SOURCE_DIR}/include/qmxexif.h ${PROJECT_SOURCE_DIR}/include/qmxexif.hpp)
# Our own import libraries, for compilers that take the one form or the other.
set(gnu_import)
set(msvc_import)
if(WIN32)
  set(module_dir ${CMAKE_INSTALL_BINDIR})
  set(module_name qmxexif.dll)
  if(MSVC OR TARGET qmxexif_msvc_import)
    set(msvc_import qmxexif.lib)
  endif()
  if(MINGW)
    set(gnu_import libqmxexif.dll.a)
  endif()
  list(APPEND headers ${PROJECT_SOURCE_DIR}/src/com/qmxexif.idl)
  install(FILES ${QMX_TYPE_LIBRARY} DESTINATION ${module_dir} COMPONENT runtime)
  if(MINGW AND msvc_import)
    install(FILES ${PROJECT_BINARY_DIR}/qmxexif.lib DESTINATION ${CMAKE_INSTALL_LIBDIR}
      COMPONENT development)
  endif()
  if(TARGET qmxshow)
    install(TARGETS qmxshow RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tools)
  endif()
else()
  set(module_dir ${CMAKE_INSTALL_LIBDIR})
  set(module_name libqmxexif.so)
  # The header needs the types of Win32, and a wchar_t of 16 bits.
  install(FILES ${PROJECT_SOURCE_DIR}/tests/shim/windows.h ${PROJECT_SOURCE_DIR}/tests/shim/objidl.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/qmxexif-native COMPONENT development)
endif()

install(TARGETS qmxexif
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
install(FILES ${headers} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)

# Writes the configuration file of a tree below `prefix` (relative places, which may be moved) or
# with absolute places; `destination` is where in the tree it will lie.
function(qmx_configure_package output prefix destination module_place include_place library_place
         native_place)
  configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/qmxexifConfig.cmake.in ${output}
    INSTALL_PREFIX ${prefix} INSTALL_DESTINATION ${destination}
    PATH_VARS module_place include_place library_place native_place)
endfunction()

write_basic_package_version_file(${PROJECT_BINARY_DIR}/qmxexifConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
qmx_configure_package(${PROJECT_BINARY_DIR}/package/qmxexifConfig.cmake /usr ${package_dir}
  ${module_dir} ${CMAKE_INSTALL_INCLUDEDIR} ${CMAKE_INSTALL_LIBDIR}
  ${CMAKE_INSTALL_INCLUDEDIR}/qmxexif-native)
install(FILES ${PROJECT_BINARY_DIR}/package/qmxexifConfig.cmake
    ${PROJECT_BINARY_DIR}/qmxexifConfigVersion.cmake
  DESTINATION ${package_dir} COMPONENT development)
qmx_configure_package(${PROJECT_BINARY_DIR}/qmxexifConfig.cmake ${PROJECT_BINARY_DIR}
  ${PROJECT_BINARY_DIR} ${PROJECT_BINARY_DIR} ${PROJECT_SOURCE_DIR}/include ${PROJECT_BINARY_DIR}
  ${PROJECT_SOURCE_DIR}/tests/shim)

# Relative to where the file lies, so that the tree may be moved.
file(RELATIVE_PATH pc_prefix /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
cmake_path(SET pc_prefix NORMALIZE ${pc_prefix})
string(REGEX REPLACE "/$" "" pc_prefix "${pc_prefix}")
set(pc_flags "-I\${includedir}")
if(NOT WIN32)
  string(APPEND pc_flags " -I\${includedir}/qmxexif-native -fshort-wchar")
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/qmxexif.pc.in qmxexif.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/qmxexif.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
  COMPONENT development)
