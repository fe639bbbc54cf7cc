# Configures, builds and runs the project in consumer/ against the library of the build tree BUILD
# or, with INSTALL, against what is installed from there; in the folder WORK, from nothing.  With
# PKG_CONFIG also builds its C program by hand, with the flags that pkg-config gives.
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${WORK})
set(tree ${BUILD})
set(module ${MODULE})
if(INSTALL)
  # A name with a space, and moved after the installation: nothing may remember the first place.
  foreach(component IN ITEMS runtime development)
    execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/first
      --component ${component} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  endforeach()
  set(tree "${WORK}/the sdk")
  file(RENAME ${WORK}/first ${tree})
  cmake_path(GET MODULE FILENAME name)
  file(GLOB_RECURSE module "${tree}/*/${name}")
endif()

execute_process(COMMAND ${CMAKE_COMMAND} -G ${GENERATOR} -S ${CMAKE_CURRENT_LIST_DIR}/consumer
    -B ${WORK}/build -DCMAKE_PREFIX_PATH=${tree} -DCMAKE_BUILD_TYPE=Release
    -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN}
    -DCMAKE_C_COMPILER=${C_COMPILER} -DCMAKE_CXX_COMPILER=${CXX_COMPILER}
    -DCMAKE_C_COMPILER_LAUNCHER=${CCACHE} -DCMAKE_CXX_COMPILER_LAUNCHER=${CCACHE}
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${WORK}/build COMMAND_ERROR_IS_FATAL ANY)

# Runs a program of the consumer on the sample and expects the camera's name.
cmake_path(GET SAMPLE PARENT_PATH sample_dir)
cmake_path(GET SAMPLE FILENAME sample_name)
function(expect_camera program)
  execute_process(COMMAND ${EMULATOR} ${program} ${sample_name} ${ARGN}
    WORKING_DIRECTORY ${sample_dir} OUTPUT_VARIABLE text RESULT_VARIABLE result)
  string(STRIP "${text}" text)
  if(NOT result STREQUAL 0 OR NOT text STREQUAL "DMC-GX7")
    message(FATAL_ERROR "${program} ended with ${result} and printed: ${text}")
  endif()
endfunction()

cmake_path(GET MODULE EXTENSION extension)
if(extension STREQUAL ".dll")
  file(COPY "${module}" DESTINATION ${WORK}/build)
  set(suffix .exe)
endif()
expect_camera(${WORK}/build/consumer_c${suffix})
expect_camera(${WORK}/build/consumer_cpp${suffix})
expect_camera(${WORK}/build/consumer_loader${suffix} "${module}")

if(INSTALL AND PKG_CONFIG)
  file(GLOB_RECURSE pc "${tree}/*/qmxexif.pc")
  cmake_path(GET pc PARENT_PATH pc_dir)
  execute_process(COMMAND ${CMAKE_COMMAND} -E env "PKG_CONFIG_PATH=${pc_dir}"
      ${PKG_CONFIG} --cflags --libs "qmxexif = ${VERSION}"
    OUTPUT_VARIABLE flags COMMAND_ERROR_IS_FATAL ANY)
  separate_arguments(flags UNIX_COMMAND "${flags}")
  if(NOT suffix)
    list(APPEND flags "-Wl,-rpath,${tree}/lib")
  endif()
  execute_process(COMMAND ${C_COMPILER} ${CMAKE_CURRENT_LIST_DIR}/consumer/main.c
    -o ${WORK}/build/by_hand${suffix} ${flags} COMMAND_ERROR_IS_FATAL ANY)
  expect_camera(${WORK}/build/by_hand${suffix})
endif()
