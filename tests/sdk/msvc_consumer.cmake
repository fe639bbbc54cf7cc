# Builds the project in msvc_consumer/ with a Clang that poses as Microsoft's compiler, in the folder
# WORK, against the installed tree SDK or, without one, what is installed from the build tree BUILD,
# and runs it: the import library that link.exe takes must be found and hold the names.
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${WORK})
if(NOT SDK)
  set(SDK ${WORK}/sdk)
  foreach(component IN ITEMS runtime development)
    execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${SDK}
      --component ${component} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  endforeach()
endif()
# There is no C library to try the compiler with.
execute_process(COMMAND ${CMAKE_COMMAND} -G ${GENERATOR} -S ${CMAKE_CURRENT_LIST_DIR}/msvc_consumer
    -B ${WORK}/build -DCMAKE_SYSTEM_NAME=Windows -DCMAKE_BUILD_TYPE=Release
    -DCMAKE_C_COMPILER=${CLANG} -DCMAKE_C_COMPILER_TARGET=x86_64-pc-windows-msvc
    -DCMAKE_C_COMPILER_WORKS=1 -DCMAKE_MSVC_RUNTIME_LIBRARY= -DCMAKE_C_STANDARD_LIBRARIES=
    -DCMAKE_PREFIX_PATH=${SDK}
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK}/build COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${EMULATOR} ${WORK}/build/msvc_consumer.exe
  WORKING_DIRECTORY ${SAMPLE_DIR} RESULT_VARIABLE result)
if(NOT result EQUAL 7)
  message(FATAL_ERROR "the program ended with ${result}")
endif()
