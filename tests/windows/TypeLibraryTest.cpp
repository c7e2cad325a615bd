#include "windows/Dll.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

// The control's automation surface as a development environment sees it: every entry is written out by hand here.

namespace orv::windows::test {

namespace {

struct ExpectedMember {
    const char* name;
    INVOKEKIND kind;
    DWORD id;
    const char* signature; ///< parameters and result, see describe()
};

constexpr auto get = INVOKE_PROPERTYGET;
constexpr auto let = INVOKE_PROPERTYPUT;
constexpr auto method = INVOKE_FUNC;

const ExpectedMember expectedMembers[] = {
    {"m_JCType", get, 0x400300AF, "() Boolean"},
    {"m_JCType", let, 0x400300AF, "(Boolean)"},
    {"UseKey", get, 0x6803000A, "() Object"},
    {"dctProFile", get, 0x68030009, "() Object"},
    {"ConditionExtHide", let, 0x68030008, "(ref Object)"},
    {"dctProFileEntry", get, 0x68030007, "() Object"},
    {"m_Header", get, 0x68030006, "() Object"},
    {"SetBackGroundColor", method, 0x6003000E, "(lColor Long) Variant"},
    {"ShowScheme", let, 0x68030005, "(Boolean)"},
    {"ShowFilterStyle", let, 0x68030004, "(Enu_ShowFilter_Style)"},
    {"DataSrv", let, 0x68030003, "(Object)"},
    {"DataSrv", get, 0x68030003, "() Object"},
    {"SetSelectPageList", let, 0x68030002, "(String)"},
    {"GetSelectPageList", get, 0x68030001, "() String"},
    {"Initialize", method, 0x60030020, "(optional sClassTypeList String) Boolean"},
    {"SaveLastUseScheme", method, 0x60030022, "() Boolean"},
    {"RefreshProfile", method, 0x60030023, "(odctProfileEntry Object) Boolean"},
    {"GetTakeBaseDataSQL", method, 0x6003003F, "(dct Object, rsAll Object, sValue String, ref FDSPName String) String"},
    {"GetFilterSql", method, 0x6003004A, "(ref strFilter String, optional bRaiseErr Boolean = False) Boolean"},
    {"GetSortString", method, 0x6003004B, "(ref HeadSort String, ref EntrySort String) Boolean"},
    {"InitHideColumns", method, 0x60030052, "() Boolean"},
    {"SaveScheme", method, 0x6003005A, "() Variant"},
    {"SetPagetoTop", method, 0x6003005B, "(nPage Long) Variant"},
    {"ClearMem", method, 0x6003005C, "()"},
    {"GetFieldInfoByKey", method, 0x6003005D, "(SKey String, ref sPKey String, ref lIndex Long) Object"},
    {"dctControl", get, 0x68030000, "() Object"},
    {"dctControl", let, 0x68030000, "(Object)"},
    {"EnableMostPage", method, 0x6003005E, "() String"},
    {"ClearFace", method, 0x60030061, "()"},
    {"GetToday", method, 0x600300AD, "() Date"},
    {"GetCurPeriod", method, 0x600300AE,
     "(ref CurYear Long, ref CurPeriod Long, ref dStartDate Date, ref dEndDate Date) Boolean"},
};

std::string narrow(BSTR text) {
    std::string narrowed;
    for (const char16_t c : viewOf(text))
        narrowed += static_cast<char>(c);
    return narrowed;
}

std::string typeName(ITypeInfo& info, const TYPEDESC& type) {
    switch (type.vt) {
    case VT_BOOL:
        return "Boolean";
    case VT_I4:
        return "Long";
    case VT_DATE:
        return "Date";
    case VT_BSTR:
        return "String";
    case VT_DISPATCH:
        return "Object";
    case VT_VARIANT:
        return "Variant";
    case VT_PTR:
        return "ref " + typeName(info, *type.lptdesc);
    case VT_USERDEFINED: {
        ComPtr<ITypeInfo> target;
        UniqueBstr name;
        if (FAILED(info.GetRefTypeInfo(type.hreftype, target.put())) ||
            FAILED(target->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr)))
            return "unknown reference";
        return narrow(name.get());
    }
    default:
        return "type " + std::to_string(type.vt);
    }
}

std::string parameterText(ITypeInfo& info, const ELEMDESC& parameter, const std::string& name) {
    std::string type = typeName(info, parameter.tdesc);
    const USHORT flags = parameter.paramdesc.wParamFlags;
    std::string text;
    if (flags & PARAMFLAG_FOPT)
        text += "optional ";
    const bool isReference = type.starts_with("ref ");
    if (isReference)
        type.erase(0, 4);
    // By reference is both in and out; everything else is in alone.
    if (isReference && (flags & (PARAMFLAG_FIN | PARAMFLAG_FOUT)) != (PARAMFLAG_FIN | PARAMFLAG_FOUT))
        text += "not in-out ";
    if (!isReference && (flags & (PARAMFLAG_FIN | PARAMFLAG_FOUT)) != PARAMFLAG_FIN)
        text += "not in ";
    text += (isReference ? "ref " : "") + name + (name.empty() ? "" : " ") + type;
    if (flags & PARAMFLAG_FHASDEFAULT) {
        const VARIANT& value = parameter.paramdesc.pparamdescex->varDefaultValue;
        text += V_VT(&value) == VT_BOOL && V_BOOL(&value) == VARIANT_FALSE ? " = False" : " = something else";
    }
    return text;
}

/// "(name type, ref name type) result", as a reader would write it. The value of a property write has no name.
std::string describe(ITypeInfo& info, const FUNCDESC& function) {
    BSTR names[8] = {};
    UINT count = 0;
    info.GetNames(function.memid, names, 8, &count);
    std::string text = "(";
    for (int i = 0; i < function.cParams; ++i) {
        const bool named = function.invkind == INVOKE_FUNC && static_cast<UINT>(i) + 1 < count;
        text +=
            (i > 0 ? ", " : "") + parameterText(info, function.lprgelemdescParam[i], named ? narrow(names[i + 1]) : "");
    }
    text += ")";
    for (UINT i = 0; i < count; ++i)
        SysFreeString(names[i]);
    const TYPEDESC& result = function.elemdescFunc.tdesc;
    return result.vt == VT_VOID ? text : text + " " + typeName(info, result);
}

class TypeLibrary : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(LoadTypeLibEx(asWide(Dll::pathOf(u"ORVFilter.ocx")), REGKIND_NONE, library_.put()), S_OK);
    }
    ComPtr<ITypeInfo> info(const wchar_t* name) {
        std::wstring writable(name);
        ComPtr<ITypeInfo> found;
        MEMBERID id = 0;
        USHORT count = 1;
        if (FAILED(library_->FindName(writable.data(), 0, found.put(), &id, &count)) || count != 1)
            ADD_FAILURE() << "no type of that name in the library";
        return found;
    }
    struct Attributes {
        TYPEKIND kind;
        WORD flags;
        WORD functions;
        WORD variables;
        GUID id;
    };
    static Attributes attributes(ITypeInfo& info) {
        TYPEATTR* raw = nullptr;
        EXPECT_EQ(info.GetTypeAttr(&raw), S_OK);
        const Attributes copy{raw->typekind, raw->wTypeFlags, raw->cFuncs, raw->cVars, raw->guid};
        info.ReleaseTypeAttr(raw);
        return copy;
    }

    ComPtr<ITypeLib> library_;
};

TEST_F(TypeLibrary, IsVersion12OfOrvFilterInEnglish) {
    TLIBATTR* attributes = nullptr;
    ASSERT_EQ(library_->GetLibAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->guid, LIBID_ORVFilter);
    EXPECT_EQ(attributes->wMajorVerNum, 1);
    EXPECT_EQ(attributes->wMinorVerNum, 2);
    EXPECT_EQ(attributes->lcid, 0x409u);
    library_->ReleaseTLibAttr(attributes);
    UniqueBstr name;
    ASSERT_EQ(library_->GetDocumentation(-1, name.put(), nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(narrow(name.get()), "ORVFilter");
}

TEST_F(TypeLibrary, HoldsItsTypesInOrder) {
    std::vector<std::string> names;
    for (UINT i = 0; i < library_->GetTypeInfoCount(); ++i) {
        UniqueBstr name;
        library_->GetDocumentation(static_cast<INT>(i), name.put(), nullptr, nullptr, nullptr);
        names.push_back(narrow(name.get()));
    }
    EXPECT_EQ(names, (std::vector<std::string>{"_Filter", "Filter", "__Filter", "Enu_ShowFilter_Style"}));
}

TEST_F(TypeLibrary, ListsTheMembersOfTheInterface) {
    const ComPtr<ITypeInfo> filter = info(L"_Filter");
    ASSERT_TRUE(filter);
    EXPECT_EQ(attributes(*filter).id, __uuidof(_Filter));
    EXPECT_NE(attributes(*filter).flags & TYPEFLAG_FDUAL, 0);
    constexpr UINT inheritedMembers = 7; // of IUnknown and IDispatch
    ASSERT_EQ(attributes(*filter).functions, inheritedMembers + std::size(expectedMembers));
    for (std::size_t i = 0; i < std::size(expectedMembers); ++i) {
        const ExpectedMember& expected = expectedMembers[i];
        SCOPED_TRACE(std::string("entry ") + std::to_string(i + 1) + ", " + expected.name);
        FUNCDESC* function = nullptr;
        ASSERT_EQ(filter->GetFuncDesc(static_cast<UINT>(i) + inheritedMembers, &function), S_OK);
        UniqueBstr name;
        filter->GetDocumentation(function->memid, name.put(), nullptr, nullptr, nullptr);
        EXPECT_EQ(narrow(name.get()), expected.name);
        EXPECT_EQ(function->invkind, expected.kind);
        EXPECT_EQ(static_cast<DWORD>(function->memid), expected.id);
        EXPECT_EQ(describe(*filter, *function), expected.signature);
        EXPECT_EQ(function->oVft, static_cast<SHORT>((inheritedMembers + i) * sizeof(void*)));
        filter->ReleaseFuncDesc(function);
    }
}

TEST_F(TypeLibrary, GivesTheClassItsInterfaceAndAnEmptyEventInterface) {
    const ComPtr<ITypeInfo> coclass = info(L"Filter");
    ASSERT_TRUE(coclass);
    EXPECT_EQ(attributes(*coclass).kind, TKIND_COCLASS);
    EXPECT_EQ(attributes(*coclass).id, __uuidof(::Filter));
    EXPECT_NE(attributes(*coclass).flags & TYPEFLAG_FCANCREATE, 0);
    EXPECT_NE(attributes(*coclass).flags & TYPEFLAG_FCONTROL, 0);
    INT flags = 0;
    ASSERT_EQ(coclass->GetImplTypeFlags(0, &flags), S_OK);
    EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT);
    ASSERT_EQ(coclass->GetImplTypeFlags(1, &flags), S_OK);
    EXPECT_EQ(flags, IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE);

    const ComPtr<ITypeInfo> events = info(L"__Filter");
    ASSERT_TRUE(events);
    EXPECT_EQ(attributes(*events).kind, TKIND_DISPATCH);
    EXPECT_NE(attributes(*events).flags & TYPEFLAG_FHIDDEN, 0);
    EXPECT_EQ(attributes(*events).functions, 0);
    EXPECT_EQ(attributes(*events).variables, 0);
}

TEST_F(TypeLibrary, NamesTheDisplayStyles) {
    const ComPtr<ITypeInfo> style = info(L"Enu_ShowFilter_Style");
    ASSERT_TRUE(style);
    EXPECT_EQ(attributes(*style).kind, TKIND_ENUM);
    const char* const expected[] = {"Enu_ShowFilter_Style_All", "Enu_ShowFilter_Style_FilterANDSort",
                                    "Enu_ShowFilter_Style_Filter"};
    ASSERT_EQ(attributes(*style).variables, std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        VARDESC* entry = nullptr;
        ASSERT_EQ(style->GetVarDesc(static_cast<UINT>(i), &entry), S_OK);
        UniqueBstr name;
        style->GetDocumentation(entry->memid, name.put(), nullptr, nullptr, nullptr);
        EXPECT_EQ(narrow(name.get()), expected[i]);
        EXPECT_EQ(V_VT(entry->lpvarValue), VT_I4);
        EXPECT_EQ(V_I4(entry->lpvarValue), static_cast<LONG>(i));
        style->ReleaseVarDesc(entry);
    }
}

} // namespace

} // namespace orv::windows::test
