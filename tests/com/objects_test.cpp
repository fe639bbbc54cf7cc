// Identity, aggregation and the module lock.

#include <qmxexif.h>

#include <gtest/gtest.h>
#include <shobjidl.h>
#include <thumbcache.h>

#include <thread>

#include "com/com_support.h"

namespace qmx::test {
namespace {

// An object of which ours is a part.
class Outer final : public IUnknown {
public:
    ULONG references = 1;
    ComPtr<IUnknown> inner;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** out) override {
        if (iid != __uuidof(IUnknown)) return inner->QueryInterface(iid, out);
        *out = this;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
};

struct ClassCase {
    const CLSID& clsid;
    std::vector<const IID*> interfaces;
};

const ClassCase kClasses[] = {
    {CLSID_ExifParser, {&__uuidof(IExifParser), &__uuidof(IDispatch)}},
    {CLSID_RawThmubnail,
     {&__uuidof(IRawThmubnail), &__uuidof(IDispatch), &__uuidof(IInitializeWithItem),
      &__uuidof(IThumbnailProvider)}},
};

ComPtr<IUnknown> QueryAny(IUnknown* from, const IID& iid) {
    ComPtr<IUnknown> to;
    from->QueryInterface(iid, to.ReceiveAny());
    return to;
}

TEST(Objects, KeepTheirIdentity) {
    const Apartment apartment;
    const ComModule module;
    for (const ClassCase& c : kClasses) {
        const auto object = module.Create<IUnknown>(c.clsid);
        ASSERT_TRUE(object);
        for (const IID* from : c.interfaces) {
            const auto start = QueryAny(object.Get(), *from);
            ASSERT_TRUE(start);
            EXPECT_EQ(QueryAny(start.Get(), __uuidof(IUnknown)).Get(), object.Get());
            for (const IID* to : c.interfaces) EXPECT_TRUE(QueryAny(start.Get(), *to));
        }
        void* none = &none;
        EXPECT_EQ(object->QueryInterface(__uuidof(IStream), &none), E_NOINTERFACE);
        EXPECT_EQ(none, nullptr);
        EXPECT_EQ(object->QueryInterface(__uuidof(IUnknown), nullptr), E_POINTER);
        EXPECT_EQ(object->AddRef(), 2u);
        EXPECT_EQ(object->Release(), 1u);
    }
    EXPECT_TRUE(module.isUnlocked());
}

TEST(Objects, TakeTheOuterObjectsIdentity) {
    const Apartment apartment;
    const ComModule module;
    for (const ClassCase& c : kClasses) {
        Outer outer;
        const auto factory = module.Factory(c.clsid);
        void* refused = &refused;
        EXPECT_EQ(factory->CreateInstance(&outer, *c.interfaces[0], &refused),
                  CLASS_E_NOAGGREGATION);
        EXPECT_EQ(refused, nullptr);
        ASSERT_EQ(factory->CreateInstance(&outer, __uuidof(IUnknown), outer.inner.ReceiveAny()),
                  S_OK);
        EXPECT_EQ(outer.references, 1u);  // the part does not hold the whole
        for (const IID* iid : c.interfaces) {
            const auto part = QueryAny(outer.inner.Get(), *iid);
            ASSERT_TRUE(part);
            EXPECT_EQ(outer.references, 2u);
            EXPECT_EQ(QueryAny(part.Get(), __uuidof(IUnknown)).Get(), &outer);
            EXPECT_EQ(part->AddRef(), 3u);
            EXPECT_EQ(part->Release(), 2u);
        }
        EXPECT_EQ(outer.references, 1u);
        EXPECT_EQ(QueryAny(outer.inner.Get(), __uuidof(IUnknown)).Get(), outer.inner.Get());
        EXPECT_FALSE(module.isUnlocked());
        outer.inner = {};
        EXPECT_EQ(outer.references, 1u);
    }
    EXPECT_TRUE(module.isUnlocked());
}

TEST(Objects, AreMadeByTheirFactoriesOnly) {
    const Apartment apartment;
    const ComModule module;
    void* out = &out;
    EXPECT_EQ(module.getClassObject(CLSID_NULL, __uuidof(IClassFactory), &out),
              CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(module.getClassObject(CLSID_ExifParser, __uuidof(IStream), &out), E_NOINTERFACE);
    EXPECT_EQ(module.getClassObject(CLSID_ExifParser, __uuidof(IClassFactory), nullptr), E_POINTER);
    for (const ClassCase& c : kClasses) {
        const auto factory = module.Factory(c.clsid);
        EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(IUnknown), nullptr), E_POINTER);
        out = &out;
        EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(IStream), &out), E_NOINTERFACE);
        EXPECT_EQ(out, nullptr);
    }
    EXPECT_TRUE(module.isUnlocked());
}

TEST(Objects, LockTheModuleWhileTheyLive) {
    const Apartment apartment;
    const ComModule module;
    for (const ClassCase& c : kClasses) {
        EXPECT_TRUE(module.isUnlocked());
        auto object = module.Create<IUnknown>(c.clsid);
        EXPECT_FALSE(module.isUnlocked());
        object = {};
        module.Factory(c.clsid)->LockServer(TRUE);
        EXPECT_FALSE(module.isUnlocked());
        module.Factory(c.clsid)->LockServer(FALSE);
    }
    EXPECT_TRUE(module.isUnlocked());
}

// Two apartments at once; a count that were not exact would not come back to zero.
TEST(Objects, CountExactlyAcrossApartments) {
    const ComModule module;
    const auto work = [&] {
        const Apartment apartment;
        for (int i = 0; i < 4000; ++i) {
            const auto parser = module.Create<IExifParser>(CLSID_ExifParser);
            const auto dispatch = Query<IDispatch>(parser);
            UINT count = 0;
            EXPECT_EQ(dispatch->GetTypeInfoCount(&count), S_OK);
            EXPECT_EQ(count, 1u);
            EXPECT_EQ(module.canUnloadNow(), S_FALSE);
            if (i % 40 == 0) {
                EXPECT_TRUE(module.Create<IThumbnailProvider>(CLSID_RawThmubnail));
            }
        }
    };
    std::thread first(work);
    std::thread second(work);
    first.join();
    second.join();
    EXPECT_TRUE(module.isUnlocked());
}

}  // namespace
}  // namespace qmx::test
