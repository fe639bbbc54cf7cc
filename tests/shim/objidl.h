/* objidl.h of the native test build: IStream, with its methods in the order of COM's table. */
#ifndef QMX_SHIM_OBJIDL_H
#define QMX_SHIM_OBJIDL_H

#include <windows.h>

typedef struct tagSTATSTG {
    LPOLESTR pwcsName;
    DWORD type;
    ULARGE_INTEGER cbSize;
    FILETIME mtime, ctime, atime;
    DWORD grfMode;
    DWORD grfLocksSupported;
    CLSID clsid;
    DWORD grfStateBits;
    DWORD reserved;
} STATSTG;

enum { STREAM_SEEK_SET, STREAM_SEEK_CUR, STREAM_SEEK_END };
enum { STATFLAG_DEFAULT, STATFLAG_NONAME };
enum { STGTY_STORAGE = 1, STGTY_STREAM };

#ifdef __cplusplus

using REFIID = const IID&;
using REFGUID = const GUID&;

extern "C" const IID IID_IUnknown;
extern "C" const IID IID_ISequentialStream;
extern "C" const IID IID_IStream;

bool operator==(const GUID& a, const GUID& b);
inline bool operator!=(const GUID& a, const GUID& b) { return !(a == b); }

// No virtual destructors: they would take places in the table.
struct IUnknown {
    virtual HRESULT QueryInterface(REFIID id, void** object) = 0;
    virtual ULONG AddRef() = 0;
    virtual ULONG Release() = 0;
};

struct ISequentialStream : IUnknown {
    virtual HRESULT Read(void* bytes, ULONG length, ULONG* read) = 0;
    virtual HRESULT Write(const void* bytes, ULONG length, ULONG* written) = 0;
};

struct IStream : ISequentialStream {
    virtual HRESULT Seek(LARGE_INTEGER move, DWORD origin, ULARGE_INTEGER* position) = 0;
    virtual HRESULT SetSize(ULARGE_INTEGER size) = 0;
    virtual HRESULT CopyTo(IStream* target, ULARGE_INTEGER length, ULARGE_INTEGER* read,
                           ULARGE_INTEGER* written) = 0;
    virtual HRESULT Commit(DWORD flags) = 0;
    virtual HRESULT Revert() = 0;
    virtual HRESULT LockRegion(ULARGE_INTEGER offset, ULARGE_INTEGER length, DWORD type) = 0;
    virtual HRESULT UnlockRegion(ULARGE_INTEGER offset, ULARGE_INTEGER length, DWORD type) = 0;
    virtual HRESULT Stat(STATSTG* state, DWORD flags) = 0;
    virtual HRESULT Clone(IStream** stream) = 0;
};

#else

typedef struct IStream IStream; /* the C callers here pass none */

#endif

#endif
