# Checks that the shared library MODULE, read with NM, exports exactly the names EXPORTS.
cmake_minimum_required(VERSION 3.25)
execute_process(COMMAND ${NM} -D --defined-only ${MODULE} OUTPUT_VARIABLE text
  COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" rows "${text}")
list(TRANSFORM rows REPLACE "^.* ([^ ]+)$" "\\1")
set(expected ${EXPORTS})
list(SORT rows)
list(SORT expected)
if(NOT rows STREQUAL expected)
  message(FATAL_ERROR "${MODULE} exports: ${rows}\nexpected: ${expected}")
endif()
