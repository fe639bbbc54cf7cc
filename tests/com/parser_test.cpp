// The automation object: its methods, its late binding and its place in the vtable.

#include <qmxexif.h>

#include <gtest/gtest.h>

#include "com/com_support.h"
#include "support/api.h"
#include "support/memory_stream.h"
#include "support/seed_files.h"
#include "support/utf8.h"

namespace qmx::test {
namespace {

class Parser : public testing::Test {
protected:
    const Apartment apartment;
    const ComModule module;
    const ComPtr<IExifParser> parser = module.Create<IExifParser>(CLSID_ExifParser);
    const TestFile photo{FullPhoto(Order::kLittle), "写真 1.jpg"};
    const TestFile other{FromText("no photo"), ".jpg"};
    const AutoBstr path{photo.path()};
    const AutoBstr otherPath{other.path()};
    const AutoBstr missing{L"Z:\\no such file.jpg"};
};

INT_PTR CALLBACK Count(UINT32, const WCHAR*, const WCHAR*, INT_PTR user) {
    ++*reinterpret_cast<int*>(user);
    return 0;
}

TEST_F(Parser, AnswersLikeTheExports) {
    EXPECT_EQ(parser->ExifIsExifFile(path), S_OK);
    EXPECT_EQ(parser->ExifIsExifFile(otherPath), E_FAIL);
    EXPECT_EQ(parser->ExifIsExifFile(nullptr), E_FAIL);

    const Answer expected = AskFor(photo.path());
    MemoryStream stream;
    LONG orientation = -7;
    InfoRequest record = {};
    EXPECT_EQ(parser->ExifGetExifInfoEx(path, &stream, &orientation, 0,
                                        reinterpret_cast<LONG_PTR>(&record)),
              S_OK);
    EXPECT_EQ(Utf8(record.modelText), Utf8(expected.record.modelText));
    EXPECT_EQ(orientation, static_cast<LONG>(expected.record.orientation));
    EXPECT_EQ(stream.references, 1);

    MemoryStream viaExport;
    UINT32 exported = 0;
    Library().getThumbnailImage(photo.path(), &viaExport, &exported, 1, nullptr, 0);
    MemoryStream large;
    AutoBstr text(QMXEXIF_TEXT_BUFFER_LENGTH);
    EXPECT_EQ(parser->ExifGetThumbnailImage(path, &large, &orientation, 1, text, 1), S_OK);
    EXPECT_EQ(large.bytes, viaExport.bytes);
    EXPECT_EQ(static_cast<UINT32>(orientation), exported);
    EXPECT_EQ(Utf8(text), expected.shortText);
    EXPECT_EQ(Utf8(text + lstrlenW(text) + 1), expected.longText);

    AutoBstr tip(QMXEXIF_TEXT_BUFFER_LENGTH);
    EXPECT_EQ(parser->ExifGetInfoTip(path, tip, 1), S_OK);
    EXPECT_EQ(Utf8(tip), expected.shortText);
    AutoBstr date(40u);
    EXPECT_EQ(parser->ExifGetDateTimeString(path, date, 5), S_OK);
    EXPECT_EQ(lstrlenW(date), 4);
    EXPECT_EQ(parser->ExifGetDateTimeString(path, date, -1), E_FAIL);

    int calls = 0;
    EXPECT_EQ(parser->ExifEnumInfo(path, reinterpret_cast<LONG_PTR>(Count),
                                   reinterpret_cast<LONG_PTR>(&calls)),
              S_OK);
    EXPECT_EQ(calls, static_cast<int>(ListOf(photo.path()).size()));
}

TEST_F(Parser, FailsWithoutTouchingAnything) {
    for (const BSTR bad : {BSTR(otherPath), BSTR(missing), BSTR(nullptr)}) {
        MemoryStream stream;
        LONG orientation = -7;
        AutoBstr text(8u);
        EXPECT_EQ(parser->ExifGetExifInfoEx(bad, &stream, &orientation, 0, 0), E_FAIL);
        EXPECT_EQ(parser->ExifGetThumbnailImage(bad, &stream, &orientation, 1, text, 8), E_FAIL);
        EXPECT_EQ(parser->ExifGetInfoTip(bad, text, 8), E_FAIL);
        EXPECT_EQ(Utf8(text), "--------");
        EXPECT_EQ(orientation, -7);
        EXPECT_TRUE(stream.bytes.empty());
        EXPECT_EQ(parser->ExifGetDateTimeString(bad, text, 8), E_FAIL);
        EXPECT_EQ(parser->ExifEnumInfo(bad, reinterpret_cast<LONG_PTR>(Count), 0), S_OK);
    }
    AutoBstr text(8u);
    EXPECT_EQ(parser->ExifGetInfoTip(path, text, 0), S_OK);
    EXPECT_EQ(Utf8(text), "--------");
    EXPECT_EQ(parser->ExifGetInfoTip(path, nullptr, 5), S_OK);
    EXPECT_EQ(parser->ExifGetExifInfoEx(path, nullptr, nullptr, 0, 0), S_OK);
    EXPECT_EQ(parser->ExifEnumInfo(path, 0, 0), S_OK);
}

// Callers know the methods by their place, behind the seven of IDispatch.
TEST_F(Parser, HasItsMethodsInOrder) {
    void** slots = *reinterpret_cast<void***>(parser.Get());
    using IsExifFile = HRESULT(STDMETHODCALLTYPE*)(IExifParser*, const wchar_t*);
    using GetInfoTip = HRESULT(STDMETHODCALLTYPE*)(IExifParser*, const wchar_t*, wchar_t*, INT32);
    wchar_t text[QMXEXIF_TEXT_BUFFER_LENGTH] = {};
    EXPECT_EQ(reinterpret_cast<IsExifFile>(slots[7])(parser.Get(), photo.path()), S_OK);
    EXPECT_EQ(reinterpret_cast<GetInfoTip>(slots[10])(parser.Get(), photo.path(), text, 1), S_OK);
    EXPECT_NE(text[0], 0);
    EXPECT_EQ(reinterpret_cast<GetInfoTip>(slots[11])(parser.Get(), photo.path(), text, 20), S_OK);
    EXPECT_EQ(lstrlenW(text), 19);
}

class RegisteredLibrary {
public:
    RegisteredLibrary() {
        std::wstring path = Environment(L"QMX_TYPE_LIBRARY");
        LoadTypeLibEx(path.c_str(), REGKIND_NONE, library_.Receive());
        if (library_) result = RegisterTypeLib(library_.Get(), path.data(), nullptr);
    }
    HRESULT result = E_FAIL;

private:
    const ScratchRegistry registry_;
    ComPtr<ITypeLib> library_;
};

VARIANT Number(LONG value) {
    VARIANT v = {};
    v.vt = VT_I4;
    v.lVal = value;
    return v;
}
VARIANT Text(BSTR value) {
    VARIANT v = {};
    v.vt = VT_BSTR;
    v.bstrVal = value;
    return v;
}

// Calls a method as a script does: by its name, with the arguments as variants.
HRESULT Call(IDispatch* object, const wchar_t* name, std::vector<VARIANT> arguments) {
    DISPID id = DISPID_UNKNOWN;
    auto* names = const_cast<wchar_t*>(name);
    HRESULT result = object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(result)) return result;
    std::reverse(arguments.begin(), arguments.end());
    DISPPARAMS parameters = {arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    EXCEPINFO exception = {};
    result = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                            nullptr, &exception, nullptr);
    return result == DISP_E_EXCEPTION ? exception.scode : result;
}

TEST_F(Parser, IsBoundLate) {
    const RegisteredLibrary library;
    ASSERT_EQ(library.result, S_OK);
    const auto object = module.Create<IDispatch>(CLSID_ExifParser);
    EXPECT_EQ(Call(object.Get(), L"ExifIsExifFile", {Text(path)}), S_OK);
    EXPECT_EQ(Call(object.Get(), L"exifisexiffile", {Text(otherPath)}), E_FAIL);
    EXPECT_EQ(Call(object.Get(), L"NoSuchMethod", {}), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(Call(object.Get(), L"ExifIsExifFile", {}), DISP_E_BADPARAMCOUNT);

    const AutoBstr tip(QMXEXIF_TEXT_BUFFER_LENGTH);
    EXPECT_EQ(Call(object.Get(), L"ExifGetInfoTip", {Text(path), Text(tip), Number(1)}), S_OK);
    EXPECT_EQ(Utf8(tip), AskFor(photo.path()).shortText);
    const AutoBstr date(40u);
    EXPECT_EQ(Call(object.Get(), L"ExifGetDateTimeString", {Text(path), Text(date), Number(11)}),
              S_OK);
    EXPECT_EQ(lstrlenW(date), 10);

    ComPtr<IStream> stream;
    ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, stream.Receive()), S_OK);
    LONG orientation = 0;
    VARIANT image = {};
    image.vt = VT_UNKNOWN;
    image.punkVal = stream.Get();
    VARIANT turn = {};
    turn.vt = VT_BYREF | VT_I4;
    turn.plVal = &orientation;
    EXPECT_EQ(Call(object.Get(), L"ExifEnumInfo", {Text(missing), Number(0), Number(0)}), S_OK);
    EXPECT_EQ(Call(object.Get(), L"ExifGetThumbnailImage",
                   {Text(path), image, turn, Number(0), Text(nullptr), Number(0)}),
              S_OK);
    STATSTG stored = {};
    stream->Stat(&stored, STATFLAG_NONAME);
    EXPECT_NE(stored.cbSize.QuadPart, 0u);
    EXPECT_EQ(orientation, static_cast<LONG>(AskFor(photo.path()).record.orientation));
    EXPECT_EQ(
        Call(object.Get(), L"ExifGetExifInfoEx", {Text(path), image, turn, Number(1), Number(0)}),
        S_OK);
}

TEST_F(Parser, SharesItsTypeInformation) {
    for (const CLSID& clsid : {CLSID_ExifParser, CLSID_RawThmubnail}) {
        const auto first = module.Create<IDispatch>(clsid);
        const auto second = module.Create<IDispatch>(clsid);
        ComPtr<ITypeInfo> none;
        EXPECT_TRUE(FAILED(first->GetTypeInfo(0, LOCALE_NEUTRAL, none.Receive())));
        EXPECT_FALSE(none);
        EXPECT_EQ(first->GetTypeInfoCount(nullptr), E_POINTER);

        const RegisteredLibrary library;
        ASSERT_EQ(library.result, S_OK);
        ComPtr<ITypeInfo> info[3];
        EXPECT_EQ(first->GetTypeInfo(0, LOCALE_NEUTRAL, info[0].Receive()), S_OK);
        EXPECT_EQ(first->GetTypeInfo(0, LOCALE_NEUTRAL, info[1].Receive()), S_OK);
        EXPECT_EQ(second->GetTypeInfo(0, LOCALE_NEUTRAL, info[2].Receive()), S_OK);
        EXPECT_EQ(info[0].Get(), info[1].Get());
        EXPECT_EQ(info[0].Get(), info[2].Get());
        EXPECT_EQ(first->GetTypeInfo(1, LOCALE_NEUTRAL, nullptr), DISP_E_BADINDEX);
        EXPECT_EQ(first->GetTypeInfo(0, LOCALE_NEUTRAL, nullptr), E_POINTER);
        const ULONG held = info[0]->AddRef();
        info[0]->Release();
        info[1] = {};
        info[2] = {};
        EXPECT_EQ(info[0]->AddRef(), held - 2);
        info[0]->Release();
    }
}

}  // namespace
}  // namespace qmx::test
