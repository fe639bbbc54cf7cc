# The exported names, read from the one place that lists them.

set(QMX_DEF ${PROJECT_SOURCE_DIR}/src/qmxexif.def)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${QMX_DEF})
file(STRINGS ${QMX_DEF} QMX_EXPORTS REGEX "^[ \t]+[A-Za-z]")
list(TRANSFORM QMX_EXPORTS STRIP)
list(TRANSFORM QMX_EXPORTS REPLACE "[ \t].*$" "")
# The entry points of COM are PRIVATE: no import library has them, and the native build neither.
if(NOT WIN32)
  file(STRINGS ${QMX_DEF} private_exports REGEX "^[ \t]+[A-Za-z]+[ \t]+PRIVATE")
  list(TRANSFORM private_exports STRIP)
  list(TRANSFORM private_exports REPLACE "[ \t].*$" "")
  list(REMOVE_ITEM QMX_EXPORTS ${private_exports})
endif()
