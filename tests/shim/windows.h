/* windows.h of the native test build: the types and functions of Win32 that the sources use, with
 * their sizes and values on x64.  Compiled with -fshort-wchar; usable from C and C++. */
#ifndef QMX_SHIM_WINDOWS_H
#define QMX_SHIM_WINDOWS_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#define WINAPI
#define CALLBACK
#define STDMETHODCALLTYPE

typedef int BOOL;
typedef uint8_t BYTE, UINT8;
typedef uint16_t WORD, USHORT, UINT16;
typedef uint32_t DWORD, ULONG, UINT, UINT32, LCID;
typedef int32_t LONG, INT, INT32, HRESULT;
typedef int64_t LONGLONG, INT64;
typedef uint64_t ULONGLONG, UINT64;
typedef intptr_t INT_PTR, LONG_PTR;
typedef uintptr_t UINT_PTR, ULONG_PTR;
typedef size_t SIZE_T;
typedef float FLOAT;
typedef char CHAR, *LPSTR;
typedef const char* LPCSTR;
typedef wchar_t WCHAR, *LPWSTR, *LPOLESTR;
typedef const wchar_t* LPCWSTR;
typedef void *HANDLE, *LPVOID;
typedef const void* LPCVOID;
typedef DWORD* LPDWORD;
typedef BOOL* LPBOOL;

typedef union _LARGE_INTEGER {
    LONGLONG QuadPart;
} LARGE_INTEGER;
typedef union _ULARGE_INTEGER {
    ULONGLONG QuadPart;
} ULARGE_INTEGER;

typedef struct _FILETIME {
    DWORD dwLowDateTime, dwHighDateTime;
} FILETIME;

typedef struct _SYSTEMTIME {
    WORD wYear, wMonth, wDayOfWeek, wDay, wHour, wMinute, wSecond, wMilliseconds;
} SYSTEMTIME;

typedef struct _GUID {
    uint32_t Data1;
    uint16_t Data2, Data3;
    uint8_t Data4[8];
} GUID, IID, CLSID;

#define TRUE 1
#define FALSE 0
#define MAX_PATH 260

#define S_OK ((HRESULT)0)
#define S_FALSE ((HRESULT)1)
#define E_NOTIMPL ((HRESULT)0x80004001)
#define E_NOINTERFACE ((HRESULT)0x80004002)
#define E_POINTER ((HRESULT)0x80004003)
#define E_FAIL ((HRESULT)0x80004005)
#define E_OUTOFMEMORY ((HRESULT)0x8007000E)
#define E_INVALIDARG ((HRESULT)0x80070057)
#define STG_E_INVALIDFUNCTION ((HRESULT)0x80030001)
#define STG_E_MEDIUMFULL ((HRESULT)0x80030070)
#define SUCCEEDED(hr) ((HRESULT)(hr) >= 0)
#define FAILED(hr) ((HRESULT)(hr) < 0)

#define ERROR_SUCCESS 0u
#define ERROR_FILE_NOT_FOUND 2u
#define ERROR_PATH_NOT_FOUND 3u
#define ERROR_ACCESS_DENIED 5u
#define ERROR_INVALID_HANDLE 6u
#define ERROR_NOT_ENOUGH_MEMORY 8u
#define ERROR_INVALID_PARAMETER 87u
#define ERROR_FILENAME_EXCED_RANGE 206u
#define ERROR_FILE_INVALID 1006u

DWORD WINAPI GetLastError(void);
void WINAPI SetLastError(DWORD error);

/* Files: reading only, whatever `access` says.  Sharing is not emulated. */
#define INVALID_HANDLE_VALUE ((HANDLE)(intptr_t)-1)
#define GENERIC_READ 0x80000000u
#define FILE_SHARE_READ 0x00000001u
#define OPEN_EXISTING 3u
#define FILE_ATTRIBUTE_NORMAL 0x00000080u
#define FILE_FLAG_SEQUENTIAL_SCAN 0x08000000u
#define PAGE_READONLY 0x02u
#define FILE_MAP_READ 0x0004u

HANDLE WINAPI CreateFileW(LPCWSTR path, DWORD access, DWORD share, void* security,
                          DWORD disposition, DWORD flags, HANDLE model);
BOOL WINAPI GetFileSizeEx(HANDLE file, LARGE_INTEGER* size);
HANDLE WINAPI CreateFileMappingW(HANDLE file, void* security, DWORD protection, DWORD sizeHigh,
                                 DWORD sizeLow, LPCWSTR name);
LPVOID WINAPI MapViewOfFile(HANDLE mapping, DWORD access, DWORD offsetHigh, DWORD offsetLow,
                            SIZE_T length);
BOOL WINAPI UnmapViewOfFile(LPCVOID view);
BOOL WINAPI CloseHandle(HANDLE handle);
DWORD WINAPI GetFullPathNameW(LPCWSTR path, DWORD capacity, LPWSTR full, LPWSTR* filePart);

/* Strings.  Comparison is by code unit, without the system's linguistic order. */
#define CP_ACP 0u /* Windows-1252 */

int WINAPI lstrlenW(LPCWSTR text);
LPWSTR WINAPI lstrcpynW(LPWSTR dst, LPCWSTR src, int capacity);
int WINAPI lstrcmpiW(LPCWSTR a, LPCWSTR b);
int WINAPI MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR src, int length, LPWSTR dst,
                               int capacity);

/* Times.  The user's zone is the host's, whatever `zone` says. */
typedef struct _TIME_ZONE_INFORMATION TIME_ZONE_INFORMATION;

BOOL WINAPI FileTimeToSystemTime(const FILETIME* time, SYSTEMTIME* utc);
BOOL WINAPI SystemTimeToTzSpecificLocalTime(const TIME_ZONE_INFORMATION* zone,
                                            const SYSTEMTIME* utc, SYSTEMTIME* local);

/* The formats of the user's locale, which is English (United States). */
#define LOCALE_USER_DEFAULT 0x0400u
#define DATE_LONGDATE 0x2u

int WINAPI GetDateFormatW(LCID locale, DWORD flags, const SYSTEMTIME* date, LPCWSTR format,
                          LPWSTR text, int capacity);
int WINAPI GetTimeFormatW(LCID locale, DWORD flags, const SYSTEMTIME* time, LPCWSTR format,
                          LPWSTR text, int capacity);

#ifdef __cplusplus
}
#endif

#endif
