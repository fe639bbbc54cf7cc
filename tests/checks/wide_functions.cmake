# Checks that LIBRARY, read with NM, calls no wide function of the C library and uses no wide
# string class: they take 4-byte characters, while our texts are UTF-16 everywhere.
cmake_minimum_required(VERSION 3.25)
execute_process(COMMAND ${NM} -uC ${LIBRARY} OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL "[^\n]+" rows "${text}")
list(FILTER rows INCLUDE REGEX
  " (wcs|wmem|mbsto|mbsrto|[a-z]*wprintf)|basic_string(_view)?<wchar_t|char_traits<wchar_t>")
if(rows)
  list(JOIN rows "\n" rows)
  message(FATAL_ERROR "wide functions of the C library in ${LIBRARY}:\n${rows}")
endif()
