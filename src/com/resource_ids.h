#pragma once
// Numbers of the module's resources, shared with the resource script.

#define QMX_STRING_MODULE_NAME 100

// Registration scripts, of the type "REGISTRY".
#define QMX_SCRIPT_MODULE 101
#define QMX_SCRIPT_EXIF_PARSER 102
#define QMX_SCRIPT_RAW_THMUBNAIL 103
