# The module: qmxexif.dll and its import libraries or, natively, libqmxexif.so with the same
# exported names but for those of COM.  The functions come out of qmxcore and qmxcom.

if(WIN32)
  include(cmake/com.cmake)
  configure_file(src/qmxexif.rc.in qmxexif.rc @ONLY)
  set_source_files_properties(${PROJECT_BINARY_DIR}/qmxexif.rc PROPERTIES
    OBJECT_DEPENDS "${QMX_SCRIPTS};${PROJECT_SOURCE_DIR}/src/com/resource_ids.h")
  add_library(qmxexif SHARED ${QMX_DEF} ${PROJECT_BINARY_DIR}/qmxexif.rc)
  set_target_properties(qmxexif PROPERTIES PREFIX "" IMPORT_PREFIX "lib")
  target_link_libraries(qmxexif PRIVATE qmxcom)
else()
  add_library(qmxexif SHARED ${QMX_DEF})
endif()
add_library(qmxexif::qmxexif ALIAS qmxexif)
set_target_properties(qmxexif PROPERTIES LINKER_LANGUAGE CXX)
target_link_libraries(qmxexif PRIVATE qmxcore)
target_include_directories(qmxexif INTERFACE ${PROJECT_SOURCE_DIR}/include)

if(MSVC)
  set_target_properties(qmxexif PROPERTIES IMPORT_PREFIX "")
  target_link_options(qmxexif PRIVATE /BASE:0x180000000 /SUBSYSTEM:WINDOWS,6.01)
elseif(WIN32)
  # The run-time library consists of far more than is called, and symbols are twice as much again;
  # win-debug keeps them.  Sections that begin on pages of the file are mapped, not copied.
  target_link_options(qmxexif PRIVATE -Wl,--exclude-all-symbols,--image-base,0x180000000
    -Wl,--gc-sections,--file-alignment,4096 $<$<CONFIG:Release>:-s>)
  target_sources(qmxexif PRIVATE src/com/runtime_errors.cpp)
  # The import library for link.exe, in the form that it makes itself.
  find_program(QMX_DLLTOOL NAMES llvm-dlltool llvm-dlltool-14)
  if(QMX_DLLTOOL)
    add_custom_command(OUTPUT ${PROJECT_BINARY_DIR}/qmxexif.lib
      COMMAND ${QMX_DLLTOOL} -m i386:x86-64 -D qmxexif.dll -d ${QMX_DEF} -l qmxexif.lib
      DEPENDS ${QMX_DEF} WORKING_DIRECTORY ${PROJECT_BINARY_DIR} VERBATIM)
    add_custom_target(qmxexif_msvc_import ALL DEPENDS ${PROJECT_BINARY_DIR}/qmxexif.lib)
  endif()
else()
  # A version script neither pulls a function out of a library nor makes a hidden one visible.
  set_source_files_properties(src/api/exports.cpp PROPERTIES COMPILE_OPTIONS -fvisibility=default)
  list(TRANSFORM QMX_EXPORTS PREPEND "-Wl,-u," OUTPUT_VARIABLE pulled)
  list(JOIN QMX_EXPORTS ";\n    " names)
  set(version_script ${PROJECT_BINARY_DIR}/qmxexif.map)
  file(CONFIGURE OUTPUT qmxexif.map CONTENT "{\n  global:\n    @names@;\n  local:\n    *;\n};\n" @ONLY)
  target_link_options(qmxexif PRIVATE ${pulled} -Wl,--version-script=${version_script})
  set_target_properties(qmxexif PROPERTIES LINK_DEPENDS ${version_script} SKIP_BUILD_RPATH ON)
endif()
