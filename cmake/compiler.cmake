# Compiler and linker switches.  Those of qmx_options go to our own targets; those that change how
# data are laid out or instrumented go to the whole directory, because GoogleTest must get them too.

find_program(QMX_CCACHE ccache)
if(QMX_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Paths relative to the checkout let a second clone find what the first one compiled.
  set(launcher ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1
    ${QMX_CCACHE})
  set(CMAKE_C_COMPILER_LAUNCHER ${launcher})
  set(CMAKE_CXX_COMPILER_LAUNCHER ${launcher})
endif()

add_library(qmx_options INTERFACE)

if(WIN32)
  target_compile_definitions(qmx_options INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN STRICT _WIN32_WINNT=0x0601)
else()
  add_compile_options(-fshort-wchar)
  find_package(Threads REQUIRED)
endif()

if(MSVC)
  set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
  target_compile_options(qmx_options INTERFACE /utf-8 /W4 /permissive-
    $<$<COMPILE_LANGUAGE:CXX>:/EHsc /Zc:__cplusplus>
    $<$<BOOL:${QMX_WERROR}>:/WX>)
  target_link_options(qmx_options INTERFACE /DYNAMICBASE /NXCOMPAT /HIGHENTROPYVA /Brepro)
else()
  target_compile_options(qmx_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    $<$<BOOL:${QMX_WERROR}>:-Werror>)
  if(WIN32)
    # One self-contained image with the system's protections, equal bytes from equal sources.
    target_link_options(qmx_options INTERFACE -static
      -Wl,--dynamicbase,--nxcompat,--high-entropy-va
      -Wl,--no-insert-timestamp
      -Wl,--major-subsystem-version,6,--minor-subsystem-version,1)
  else()
    set(CMAKE_CXX_VISIBILITY_PRESET hidden)
    set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
  endif()
endif()

if(QMX_SANITIZE)
  add_compile_options(-fsanitize=${QMX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${QMX_SANITIZE})
endif()
if(QMX_FUZZ)
  # All objects must count their edges, or the fuzzer sees none of its inputs as interesting.
  add_compile_options(-fsanitize=fuzzer-no-link)
  if(NOT QMX_SANITIZE)
    # Programs that are no fuzz targets need the counters' runtime, which other sanitizers bring.
    add_link_options(-fsanitize=fuzzer-no-link)
  endif()
endif()
