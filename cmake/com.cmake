# The COM server: interfaces and type library from the IDL file, registration scripts with its
# class ids, and the classes as a library of their own.

set(com_source ${PROJECT_SOURCE_DIR}/src/com)
set(com_generated ${PROJECT_BINARY_DIR}/com)
file(MAKE_DIRECTORY ${com_generated})
set(idl ${com_source}/qmxexif.idl)
set(interfaces ${com_generated}/qmx_interfaces.h ${com_generated}/qmx_interfaces_ids.c)
set(QMX_TYPE_LIBRARY ${PROJECT_BINARY_DIR}/QMExifLib.tlb)

if(MSVC)
  add_custom_command(OUTPUT ${interfaces} ${QMX_TYPE_LIBRARY} DEPENDS ${idl}
    COMMAND midl /nologo /env x64 /robust /h qmx_interfaces.h /iid qmx_interfaces_ids.c
      /tlb ${QMX_TYPE_LIBRARY} /out ${com_generated} ${idl}
    VERBATIM)
else()
  find_program(QMX_WIDL NAMES x86_64-w64-mingw32-widl widl REQUIRED)
  # The interfaces of the system, and the type library that every other one refers to.
  find_path(QMX_IDL_DIR oaidl.idl PATHS /usr/include/wine/wine/windows /usr/include/wine/windows
    NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  find_path(QMX_STDOLE_DIR stdole2.tlb PATHS /usr/lib/x86_64-linux-gnu/wine/x86_64-windows
    /usr/lib/wine/x86_64-windows NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  set(widl ${QMX_WIDL} -m64 -I${QMX_IDL_DIR} -L${QMX_STDOLE_DIR})
  add_custom_command(OUTPUT ${interfaces} ${QMX_TYPE_LIBRARY} DEPENDS ${idl}
    COMMAND ${widl} -h -o ${com_generated}/qmx_interfaces.h ${idl}
    COMMAND ${widl} -u -o ${com_generated}/qmx_interfaces_ids.c ${idl}
    COMMAND ${widl} -t -o ${QMX_TYPE_LIBRARY} ${idl}
    VERBATIM)
endif()
add_custom_target(qmx_interfaces ALL DEPENDS ${interfaces} ${QMX_TYPE_LIBRARY})

# Scripts and installer name everything by the ids that the IDL file gives it.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${idl})
file(READ ${idl} idl_text)
foreach(row IN ITEMS "CLSID_ coclass ExifParser" "CLSID_ coclass RawThmubnail"
        "IID_ interface IExifParser" "IID_ interface IRawThmubnail" "LIBID_ library QMExifLib")
  string(REPLACE " " ";" row ${row})
  list(POP_FRONT row prefix keyword name)
  if(NOT idl_text MATCHES "uuid\\(([-0-9A-F]+)\\)[^]]*\\][ \r\n]*${keyword} ${name}")
    message(FATAL_ERROR "${idl}: no id of ${keyword} ${name}")
  endif()
  set(${prefix}${name} ${CMAKE_MATCH_1})
endforeach()
configure_file(${com_source}/exif_parser.rgs.in ${com_generated}/exif_parser.rgs @ONLY)
configure_file(${com_source}/raw_thmubnail.rgs.in ${com_generated}/raw_thmubnail.rgs @ONLY)
configure_file(${com_source}/module.rgs ${com_generated}/module.rgs COPYONLY)
# The resource compiler names no dependencies.
set(QMX_SCRIPTS ${com_generated}/module.rgs ${com_generated}/exif_parser.rgs
  ${com_generated}/raw_thmubnail.rgs)

file(GLOB com_sources CONFIGURE_DEPENDS ${com_source}/*.cpp)
list(FILTER com_sources EXCLUDE REGEX "/runtime_errors\\.cpp$")  # the DLL's alone
add_library(qmxcom STATIC ${com_sources} ${com_generated}/qmx_interfaces_ids.c)
target_include_directories(qmxcom SYSTEM PUBLIC ${com_generated})
target_link_libraries(qmxcom PUBLIC qmxcore PRIVATE uuid)
if(MINGW)
  target_compile_options(qmxcom PRIVATE $<$<CONFIG:Release>:-Os>)
endif()
add_dependencies(qmxcom qmx_interfaces)
