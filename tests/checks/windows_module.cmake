# Checks qmxexif.dll by its headers: MODULE, read with OBJDUMP, has exactly the names EXPORTS,
# needs nothing but Windows' own DLLs, has the system's protections and a version resource.
cmake_minimum_required(VERSION 3.25)

execute_process(COMMAND ${OBJDUMP} -p ${MODULE} OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
set(failures 0)
macro(fail)
  message("${ARGN}")
  math(EXPR failures "${failures} + 1")
endmacro()

if(NOT text MATCHES "file format pei-x86-64")
  fail("not a PE32+ image for x64")
endif()
foreach(flag IN ITEMS HIGH_ENTROPY_VA DYNAMIC_BASE NX_COMPAT)
  if(NOT text MATCHES "[\n\t ]${flag}[\n\r\t ]")
    fail("flag missing: ${flag}")
  endif()
endforeach()

foreach(field IN ITEMS "MajorSubsystemVersion[ \t]+6" "MinorSubsystemVersion[ \t]+1"
        "ImageBase[ \t]+0000000180000000")
  if(NOT text MATCHES "\n${field}[\r\n]")
    fail("header field is not ${field}")
  endif()
endforeach()

# No more than these: every other one would be loaded into each program that uses the functions.
set(system_dlls kernel32 msvcrt)
string(REGEX MATCHALL "DLL Name: [^\r\n]+" imports "${text}")
if(NOT imports)
  fail("no imports found")
endif()
foreach(import IN LISTS imports)
  string(REGEX REPLACE "DLL Name: (.*)" "\\1" name "${import}")
  string(TOLOWER "${name}" name)
  string(REGEX REPLACE "\\.dll$" "" stem "${name}")
  if(NOT stem IN_LIST system_dlls)
    fail("imports ${name}")
  endif()
endforeach()

# The last table lists "[   0] Name" per export; later versions put more columns before the name.
string(REGEX REPLACE "^.*\\[Ordinal/Name Pointer\\] Table" "" names "${text}")
string(REGEX REPLACE "\nThe Function Table.*$" "" names "${names}")
string(REGEX MATCHALL "\n[ \t]+\\[ *[0-9]+\\][^\r\n]*" rows "${names}")
list(TRANSFORM rows REPLACE "^.*[] ]([A-Za-z_][^ ]*)$" "\\1")
set(expected ${EXPORTS})
list(SORT rows)
list(SORT expected)
if(NOT rows STREQUAL expected)
  fail("exports: ${rows}\nexpected: ${expected}")
endif()

# A debug build is larger.
if(MOST_BYTES)
  file(SIZE ${MODULE} bytes)
  if(bytes GREATER MOST_BYTES)
    fail("${bytes} bytes, more than ${MOST_BYTES}")
  endif()
endif()

execute_process(COMMAND ${OBJDUMP} -s -j .rsrc ${MODULE} OUTPUT_VARIABLE resources
  COMMAND_ERROR_IS_FATAL ANY)
# "VS_" of VS_VERSION_INFO in UTF-16, which opens a version resource.
string(REGEX REPLACE "\n ([0-9a-f]+) ([0-9a-f ]+)  [^\n]*" "\\2" resources "${resources}")
string(REPLACE " " "" resources "${resources}")
if(NOT resources MATCHES "560053005f0056004500520053004900")
  fail("no version resource")
endif()

if(failures)
  message(FATAL_ERROR "${MODULE}: ${failures} failed")
endif()
