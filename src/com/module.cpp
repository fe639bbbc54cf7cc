#include "com/module.h"

#include <iterator>

#include "com/class_factory.h"
#include "com/exif_parser.h"
#include "com/raw_thmubnail.h"
#include "com/registrar.h"
#include "com/resource_ids.h"
#include "com/shell_extension.h"

namespace qmx {
namespace {

struct ClassRow {
    const CLSID& clsid;
    WORD script;
    CreateFunction* create;
};

const ClassRow kClasses[] = {
    {CLSID_ExifParser, QMX_SCRIPT_EXIF_PARSER, CreateObject<CExifParser>},
    {CLSID_RawThmubnail, QMX_SCRIPT_RAW_THMUBNAIL, CreateObject<CRawThmubnail>},
};

// Puts the thread under the system's default locale, whoever the user is.
class SystemLocaleScope {
public:
    SystemLocaleScope() : before_(GetThreadLocale()) { SetThreadLocale(LOCALE_SYSTEM_DEFAULT); }
    SystemLocaleScope(const SystemLocaleScope&) = delete;
    SystemLocaleScope& operator=(const SystemLocaleScope&) = delete;
    ~SystemLocaleScope() { SetThreadLocale(before_); }

private:
    const LCID before_;
};

void KeepFirstFailure(HRESULT& kept, HRESULT result) {
    if (SUCCEEDED(kept)) kept = result;
}

}  // namespace

HRESULT CQMExifModule::GetClassObject(REFCLSID clsid, REFIID iid, void** out) {
    if (out == nullptr) return E_POINTER;
    *out = nullptr;
    for (const ClassRow& row : kClasses)
        if (row.clsid == clsid) return CreateClassFactory(*this, row.create, iid, out);
    return CLASS_E_CLASSNOTAVAILABLE;
}

HRESULT CQMExifModule::Register() const {
    WriteShellExtension();
    const SystemLocaleScope locale;
    const Registrar registrar(perUser_);
    HRESULT result = registrar.Register(QMX_SCRIPT_MODULE);
    for (const ClassRow& row : kClasses) {
        if (FAILED(result)) return result;
        result = registrar.Register(row.script);
    }
    return result;
}

HRESULT CQMExifModule::Unregister() const {
    RemoveShellExtension();
    const SystemLocaleScope locale;
    const Registrar registrar(perUser_);
    HRESULT result = S_OK;
    for (auto row = std::rbegin(kClasses); row != std::rend(kClasses); ++row)
        KeepFirstFailure(result, registrar.Unregister(row->script));
    KeepFirstFailure(result, registrar.Unregister(QMX_SCRIPT_MODULE));
    return result;
}

}  // namespace qmx
