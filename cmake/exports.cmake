# The exported names, read from the one place that lists them.

set(QMX_DEF ${PROJECT_SOURCE_DIR}/src/qmxexif.def)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${QMX_DEF})
file(STRINGS ${QMX_DEF} QMX_EXPORTS REGEX "^[ \t]+[A-Za-z]")
list(TRANSFORM QMX_EXPORTS STRIP)
list(TRANSFORM QMX_EXPORTS REPLACE "[ \t].*$" "")
