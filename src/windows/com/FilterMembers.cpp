#include "windows/com/FilterMembers.h"

#include "windows/com/VtableCall.h"

#include <cstdint>

namespace orv::windows {

namespace {

using Names = std::array<std::u16string_view, InvokeCall::mostParameters>;

constexpr std::size_t countOf(const Names& names) {
    std::size_t count = 0;
    while (count < names.size() && !names[count].empty())
        ++count;
    return count;
}

template <auto method>
constexpr FilterMember readOf(std::uint32_t id, std::u16string_view name) {
    constexpr bool givesObject =
        std::is_same_v<typename Signature<decltype(method)>::Parameters, std::tuple<IDispatch**>>;
    return {static_cast<DISPID>(id),
            name,
            DISPATCH_PROPERTYGET,
            0,
            0,
            {},
            givesObject,
            &callMethod<method, ResultParameter::last>};
}

template <auto method>
constexpr FilterMember writeOf(std::uint32_t id, std::u16string_view name) {
    return {static_cast<DISPID>(id),
            name,
            DISPATCH_PROPERTYPUT,
            1,
            1,
            {},
            false,
            &callMethod<method, ResultParameter::none>};
}

template <auto method, ResultParameter result = ResultParameter::last>
constexpr FilterMember methodOf(std::uint32_t id, std::u16string_view name, const Names& names = {},
                                std::size_t optional = 0) {
    return {static_cast<DISPID>(id),   name,  DISPATCH_METHOD, countOf(names),
            countOf(names) - optional, names, false,           &callMethod<method, result>};
}

constexpr FilterMember members[] = {
    readOf<&_Filter::get_m_JCType>(0x400300AF, u"m_JCType"),
    writeOf<&_Filter::put_m_JCType>(0x400300AF, u"m_JCType"),
    readOf<&_Filter::get_UseKey>(0x6803000A, u"UseKey"),
    readOf<&_Filter::get_dctProFile>(0x68030009, u"dctProFile"),
    writeOf<&_Filter::put_ConditionExtHide>(0x68030008, u"ConditionExtHide"),
    readOf<&_Filter::get_dctProFileEntry>(0x68030007, u"dctProFileEntry"),
    readOf<&_Filter::get_m_Header>(0x68030006, u"m_Header"),
    methodOf<&_Filter::SetBackGroundColor>(0x6003000E, u"SetBackGroundColor", {u"lColor"}),
    writeOf<&_Filter::put_ShowScheme>(0x68030005, u"ShowScheme"),
    writeOf<&_Filter::put_ShowFilterStyle>(0x68030004, u"ShowFilterStyle"),
    writeOf<&_Filter::put_DataSrv>(0x68030003, u"DataSrv"),
    readOf<&_Filter::get_DataSrv>(0x68030003, u"DataSrv"),
    writeOf<&_Filter::put_SetSelectPageList>(0x68030002, u"SetSelectPageList"),
    readOf<&_Filter::get_GetSelectPageList>(0x68030001, u"GetSelectPageList"),
    methodOf<&_Filter::Initialize>(0x60030020, u"Initialize", {u"sClassTypeList"}, 1),
    methodOf<&_Filter::SaveLastUseScheme>(0x60030022, u"SaveLastUseScheme"),
    methodOf<&_Filter::RefreshProfile>(0x60030023, u"RefreshProfile", {u"odctProfileEntry"}),
    methodOf<&_Filter::GetTakeBaseDataSQL>(0x6003003F, u"GetTakeBaseDataSQL",
                                           {u"dct", u"rsAll", u"sValue", u"FDSPName"}),
    methodOf<&_Filter::GetFilterSql>(0x6003004A, u"GetFilterSql", {u"strFilter", u"bRaiseErr"}, 1),
    methodOf<&_Filter::GetSortString>(0x6003004B, u"GetSortString", {u"HeadSort", u"EntrySort"}),
    methodOf<&_Filter::InitHideColumns>(0x60030052, u"InitHideColumns"),
    methodOf<&_Filter::SaveScheme>(0x6003005A, u"SaveScheme"),
    methodOf<&_Filter::SetPagetoTop>(0x6003005B, u"SetPagetoTop", {u"nPage"}),
    methodOf<&_Filter::ClearMem, ResultParameter::none>(0x6003005C, u"ClearMem"),
    methodOf<&_Filter::GetFieldInfoByKey>(0x6003005D, u"GetFieldInfoByKey", {u"SKey", u"sPKey", u"lIndex"}),
    readOf<&_Filter::get_dctControl>(0x68030000, u"dctControl"),
    writeOf<&_Filter::put_dctControl>(0x68030000, u"dctControl"),
    methodOf<&_Filter::EnableMostPage>(0x6003005E, u"EnableMostPage"),
    methodOf<&_Filter::ClearFace, ResultParameter::none>(0x60030061, u"ClearFace"),
    methodOf<&_Filter::GetToday>(0x600300AD, u"GetToday"),
    methodOf<&_Filter::GetCurPeriod>(0x600300AE, u"GetCurPeriod",
                                     {u"CurYear", u"CurPeriod", u"dStartDate", u"dEndDate"}),
};

constexpr std::uint8_t absent = 0xFF;

constexpr char16_t folded(char16_t c) {
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
}

constexpr bool sameName(std::u16string_view a, std::u16string_view b) {
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (folded(a[i]) != folded(b[i]))
            return false;
    }
    return true;
}

constexpr std::size_t bucketCount = 64;

/// Length and three letters: with these factors all names but one have a bucket of their own.
constexpr std::size_t bucketOf(std::u16string_view name) {
    if (name.empty())
        return 0;
    return (name.size() * 3 + folded(name.front()) + folded(name[name.size() / 2]) * 21u + folded(name.back()) * 7u) %
           bucketCount;
}

/// Positions in `members` by name, found from the name's bucket on.
struct NameIndex {
    std::array<std::uint8_t, bucketCount> positions;
};

constexpr NameIndex makeNameIndex() {
    NameIndex index{};
    index.positions.fill(absent);
    for (std::size_t i = 0; i < std::size(members); ++i) {
        std::size_t bucket = bucketOf(members[i].name);
        while (index.positions[bucket] != absent && !sameName(members[index.positions[bucket]].name, members[i].name))
            bucket = (bucket + 1) % bucketCount;
        index.positions[bucket] = static_cast<std::uint8_t>(i);
    }
    return index;
}

/// Positions in `members` by the low byte of the id, which no two names share.
struct IdIndex {
    std::array<std::uint8_t, 256> readers;
    std::array<std::uint8_t, 256> writers;
};

constexpr std::size_t lowByte(DISPID id) {
    return static_cast<std::uint32_t>(id) & 0xFF;
}

constexpr IdIndex makeIdIndex() {
    IdIndex index{};
    index.readers.fill(absent);
    index.writers.fill(absent);
    for (std::size_t i = 0; i < std::size(members); ++i) {
        auto& positions = members[i].kind == DISPATCH_PROPERTYPUT ? index.writers : index.readers;
        if (positions[lowByte(members[i].id)] != absent)
            throw "two members share the low byte of their id"; // fails the build
        positions[lowByte(members[i].id)] = static_cast<std::uint8_t>(i);
    }
    return index;
}

constexpr NameIndex names = makeNameIndex();
constexpr IdIndex ids = makeIdIndex();

} // namespace

const FilterMember* findMember(DISPID id, WORD flags) noexcept {
    const bool isWrite = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    const std::uint8_t position = (isWrite ? ids.writers : ids.readers)[lowByte(id)];
    if (position == absent || members[position].id != id)
        return nullptr;
    return isWrite || (members[position].kind & flags) != 0 ? &members[position] : nullptr;
}

const FilterMember* findMember(std::u16string_view name) noexcept {
    for (std::size_t bucket = bucketOf(name); names.positions[bucket] != absent; bucket = (bucket + 1) % bucketCount) {
        const FilterMember& member = members[names.positions[bucket]];
        if (member.name == name || sameName(member.name, name))
            return &member;
    }
    return nullptr;
}

} // namespace orv::windows
