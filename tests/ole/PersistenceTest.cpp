#include "ole/Container.h"
#include "windows/com/IFilterControls.h"

#include <gtest/gtest.h>

#include <map>

namespace orv::windows::test {

namespace {

/// A property bag over a map.
class Bag final : public ComObject<IPropertyBag, IErrorLog> {
  public:
    std::map<std::wstring, UniqueVariant> properties;
    std::vector<std::wstring> errors;

    void set(const wchar_t* name, LONG number) {
        V_VT(properties[name].put()) = VT_I4;
        V_I4(&properties[name].ref()) = number;
    }
    void set(const wchar_t* name, const char16_t* text) {
        V_VT(properties[name].put()) = VT_BSTR;
        V_BSTR(&properties[name].ref()) = UniqueBstr(text).release();
    }
    HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT* value, IErrorLog*) noexcept override {
        const auto found = properties.find(name);
        if (found == properties.end())
            return E_INVALIDARG;
        VariantInit(value);
        return VariantCopy(value, &found->second.ref());
    }
    HRESULT STDMETHODCALLTYPE Write(LPCOLESTR name, VARIANT* value) noexcept override {
        return VariantCopy(properties[name].put(), value);
    }
    HRESULT STDMETHODCALLTYPE AddError(LPCOLESTR name, EXCEPINFO*) noexcept override {
        errors.emplace_back(name);
        return S_OK;
    }
};

ComPtr<IStream> newStream() {
    ComPtr<IStream> stream;
    CreateStreamOnHGlobal(nullptr, TRUE, stream.put());
    return stream;
}

void rewind(IStream& stream) {
    stream.Seek(LARGE_INTEGER{}, STREAM_SEEK_SET, nullptr);
}

LONGLONG positionOf(IStream& stream) {
    ULARGE_INTEGER position{};
    stream.Seek(LARGE_INTEGER{}, STREAM_SEEK_CUR, &position);
    return static_cast<LONGLONG>(position.QuadPart);
}

SIZEL extentOf(const Embedded& control) {
    SIZEL extent{};
    control.as<IOleObject>()->GetExtent(DVASPECT_CONTENT, &extent);
    return extent;
}

bool jcTypeOf(const Embedded& control) {
    VARIANT_BOOL value = VARIANT_FALSE;
    control.loaded.filter->get_m_JCType(&value);
    return value != VARIANT_FALSE;
}

/// How many tabs the control shows: 3 for all, 2, or 1 for conditions only.
long tabsOf(const Embedded& control) {
    const auto controls = control.as<IFilterControls>();
    ComPtr<IDispatch> tabs;
    if (FAILED(controls->GetControl(UniqueBstr(u"tbFilter").get(), tabs.put())))
        return -1;
    wchar_t name[] = L"Count";
    LPOLESTR names = name;
    DISPID id = 0;
    DISPPARAMS none{};
    UniqueVariant count;
    tabs->GetIDsOfNames(IID_NULL, &names, 1, 0, &id);
    tabs->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, count.put(), nullptr, nullptr);
    return V_I4(&count.get());
}

class Persistence : public testing::Test {
  protected:
    void design() {
        SIZEL extent{12345, 6789};
        control.as<IOleObject>()->SetExtent(DVASPECT_CONTENT, &extent);
        control.loaded.filter->put_m_JCType(VARIANT_TRUE);
        control.loaded.filter->put_ShowFilterStyle(Enu_ShowFilter_Style_Filter);
    }
    static void expectDesigned(const Embedded& loaded) {
        EXPECT_EQ(extentOf(loaded).cx, 12345);
        EXPECT_EQ(extentOf(loaded).cy, 6789);
        EXPECT_TRUE(jcTypeOf(loaded));
        EXPECT_EQ(tabsOf(loaded), 1);
    }

    Embedded control{nullptr};
};

TEST_F(Persistence, AStreamBringsTheStateToAnotherControl) {
    design();
    const ComPtr<IStream> stream = newStream();
    ASSERT_EQ(control.as<IPersistStreamInit>()->Save(stream.get(), TRUE), S_OK);
    const LONGLONG end = positionOf(*stream);
    ULARGE_INTEGER most{};
    control.as<IPersistStreamInit>()->GetSizeMax(&most);
    EXPECT_LE(end, static_cast<LONGLONG>(most.QuadPart));

    rewind(*stream);
    const Embedded other(nullptr);
    EXPECT_EQ(tabsOf(other), 3);
    ASSERT_EQ(other.as<IPersistStreamInit>()->Load(stream.get()), S_OK);
    EXPECT_EQ(positionOf(*stream), end);
    expectDesigned(other);
    EXPECT_EQ(other.as<IPersistStreamInit>()->IsDirty(), S_FALSE);
}

TEST_F(Persistence, WhatALaterVersionAddsIsSkipped) {
    design();
    const ComPtr<IStream> stream = newStream();
    ASSERT_EQ(control.as<IPersistStreamInit>()->Save(stream.get(), TRUE), S_OK);
    const LONGLONG end = positionOf(*stream);
    // Version 2 with 4 bytes more; after the control's state goes on what the form has there.
    const BYTE versionAndSize[] = {2, 0, 20, 0};
    const BYTE added[] = {1, 2, 3, 4, 0xAA};
    stream->Write(added, sizeof added, nullptr);
    LARGE_INTEGER afterSignature{};
    afterSignature.QuadPart = 4;
    stream->Seek(afterSignature, STREAM_SEEK_SET, nullptr);
    stream->Write(versionAndSize, sizeof versionAndSize, nullptr);

    rewind(*stream);
    const Embedded other(nullptr);
    ASSERT_EQ(other.as<IPersistStreamInit>()->Load(stream.get()), S_OK);
    EXPECT_EQ(positionOf(*stream), end + 4);
    expectDesigned(other);
}

TEST_F(Persistence, AStreamThatEndsEarlyOrHoldsSomethingElseChangesNothing) {
    const ComPtr<IStream> good = newStream();
    design();
    control.as<IPersistStreamInit>()->Save(good.get(), TRUE);
    const LONGLONG whole = positionOf(*good);
    const Embedded other(nullptr);
    const SIZEL before = extentOf(other);
    for (LONGLONG length = 0; length < whole; ++length) {
        SCOPED_TRACE(length);
        const ComPtr<IStream> cut = newStream();
        rewind(*good);
        ULARGE_INTEGER size{};
        size.QuadPart = static_cast<ULONGLONG>(length);
        good->CopyTo(cut.get(), size, nullptr, nullptr);
        rewind(*cut);
        EXPECT_EQ(other.as<IPersistStreamInit>()->Load(cut.get()), STG_E_READFAULT);
    }
    const ComPtr<IStream> strange = newStream();
    const BYTE bytes[64] = {'n', 'o', 't', ' ', 'u', 's'};
    strange->Write(bytes, sizeof bytes, nullptr);
    rewind(*strange);
    EXPECT_EQ(other.as<IPersistStreamInit>()->Load(strange.get()), STG_E_INVALIDHEADER);
    EXPECT_EQ(extentOf(other).cx, before.cx);
    EXPECT_FALSE(jcTypeOf(other));
    EXPECT_EQ(tabsOf(other), 3);
}

TEST_F(Persistence, DirtyUntilSaved) {
    const auto stream = control.as<IPersistStreamInit>();
    ASSERT_EQ(stream->InitNew(), S_OK);
    EXPECT_EQ(stream->IsDirty(), S_FALSE);
    control.loaded.filter->put_m_JCType(VARIANT_TRUE);
    EXPECT_EQ(stream->IsDirty(), S_OK);
    stream->Save(newStream().get(), FALSE);
    EXPECT_EQ(stream->IsDirty(), S_OK);
    stream->Save(newStream().get(), TRUE);
    EXPECT_EQ(stream->IsDirty(), S_FALSE);
    design();
    EXPECT_EQ(stream->IsDirty(), S_OK);
}

TEST_F(Persistence, APropertyBagBringsTheStateToAnotherControl) {
    design();
    const auto bag = makeComObject<Bag>();
    ASSERT_EQ(control.as<IPersistPropertyBag>()->Save(bag.get(), TRUE, FALSE), S_OK);
    const Embedded other(nullptr);
    ASSERT_EQ(other.as<IPersistPropertyBag>()->Load(bag.get(), bag.get()), S_OK);
    expectDesigned(other);
    EXPECT_TRUE(bag->errors.empty());
}

TEST_F(Persistence, ABagHoldsInitialValuesOnlyWhenAllAreAskedFor) {
    const auto few = makeComObject<Bag>();
    control.as<IPersistPropertyBag>()->Save(few.get(), TRUE, FALSE);
    EXPECT_EQ(few->properties.size(), 2u);
    EXPECT_TRUE(few->properties.contains(L"_ExtentX") && few->properties.contains(L"_ExtentY"));
    const auto all = makeComObject<Bag>();
    control.as<IPersistPropertyBag>()->Save(all.get(), TRUE, TRUE);
    EXPECT_EQ(all->properties.size(), 4u);
}

TEST_F(Persistence, AnEmptyBagGivesTheInitialState) {
    const SIZEL before = extentOf(control);
    const auto bag = makeComObject<Bag>();
    EXPECT_EQ(control.as<IPersistPropertyBag>()->Load(bag.get(), nullptr), S_OK);
    EXPECT_EQ(extentOf(control).cx, before.cx);
    EXPECT_FALSE(jcTypeOf(control));
}

TEST_F(Persistence, AWrongPropertyIsToldToTheLogAndChangesNothing) {
    struct Case {
        const wchar_t* name;
        std::function<void(Bag&)> spoil;
    };
    for (const Case& c : {Case{L"_ExtentX", [](Bag& bag) { bag.set(L"_ExtentX", -1); }},
                          Case{L"_ExtentY", [](Bag& bag) { bag.set(L"_ExtentY", u"high"); }},
                          Case{L"m_JCType", [](Bag& bag) { bag.set(L"m_JCType", u"maybe"); }},
                          Case{L"ShowFilterStyle", [](Bag& bag) { bag.set(L"ShowFilterStyle", u"two"); }}}) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(c.name)));
        const SIZEL before = extentOf(control);
        const auto bag = makeComObject<Bag>();
        bag->set(L"_ExtentX", 4000);
        c.spoil(*bag);
        EXPECT_TRUE(FAILED(control.as<IPersistPropertyBag>()->Load(bag.get(), bag.get())));
        EXPECT_EQ(bag->errors, std::vector<std::wstring>{c.name});
        EXPECT_EQ(extentOf(control).cx, before.cx);
        EXPECT_EQ(tabsOf(control), 3);
    }
}

TEST_F(Persistence, ClosingSavesOnlyWhatIsDirtyAndOnlyWhenAsked) {
    const auto object = control.as<IOleObject>();
    object->SetClientSite(control.client());
    object->Close(OLECLOSE_SAVEIFDIRTY);
    EXPECT_EQ(control.site->take(), Calls{});
    design();
    object->Close(OLECLOSE_NOSAVE);
    EXPECT_EQ(control.site->take(), Calls{});
    object->Close(OLECLOSE_SAVEIFDIRTY);
    EXPECT_EQ(control.site->take(), Calls{"SaveObject"});
}

} // namespace

} // namespace orv::windows::test
