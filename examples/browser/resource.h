// Numbers of the resources and commands.
#pragma once

#define IDR_ACCELERATORS 100

#define IDC_REFRESH 200
#define IDC_PARENT 201
#define IDC_COPY_TEXT 202
