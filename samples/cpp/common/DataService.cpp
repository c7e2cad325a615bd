#include "DataService.h"

#include "Calls.h"
#include "Records.h"

namespace {

constexpr LONG receipts = 1;

// What kind of column a field is; more codes are in the guide.
constexpr LONG dateColumn = 0;
constexpr LONG textColumn = 1;
constexpr LONG stateColumn = 2; // a number that the user picks from a list
constexpr LONG amountColumn = 6;

/// A field record. `column` is the SQL expression; `comparisons` tells getCondition which list the field has.
ComPtr<IDispatch> field(const wchar_t* key, const wchar_t* caption, LONG type, const wchar_t* column,
                        LONG comparisons) {
    return make<Dictionary>(std::initializer_list<std::pair<std::wstring, Variant>>{
        {L"FKey", key},
        {L"FCaption", caption},
        {L"FColType", type},
        {L"FFieldName", column},
        {L"FFieldNameExt", column},
        {L"FPage", LONG{1}},
        {L"FCondition", comparisons},
        {L"FVisible", true},
        {L"FNeedAs", false},
        {L"FParentKey", L""},
    });
}

/// A field whose values have captions: "VALUELIST{key=caption,key=caption}".
ComPtr<IDispatch> listField(const wchar_t* key, const wchar_t* caption, const wchar_t* column, const wchar_t* values) {
    ComPtr<IDispatch> made = field(key, caption, stateColumn, column, stateColumn);
    put(made.get(), L"", {L"FLookUpList", values});
    return made;
}

/// An item of the select list: the fields in the order of the lists, by their keys ("Fkey" has a small k here).
ComPtr<IDispatch> selectable(const wchar_t* key) {
    return make<Dictionary>(
        std::initializer_list<std::pair<std::wstring, Variant>>{{L"Fkey", key}, {L"FVisible", true}});
}

/// A comparison: what the user chooses, and the operator in SQL. `keyword` is one of those that need no typed value.
ComPtr<IDispatch> comparison(const wchar_t* name, const wchar_t* sqlOperator, const wchar_t* keyword = L"") {
    return make<Dictionary>(std::initializer_list<std::pair<std::wstring, Variant>>{
        {L"FName", name},
        {L"FOperate", sqlOperator},
        {L"FValue", keyword},
        {L"FInput", *keyword == L'\0'},
        {L"FInputCtlType", L"0"},
        {L"FDataFieldIndex", L"1"},
        {L"FDataSourceType", LONG{0}},
        {L"FDataSource", L""},
    });
}

/// A comparison with a list: the user picks a caption of the field's values, the SQL text gets the key.
ComPtr<IDispatch> choice(const wchar_t* name, const wchar_t* sqlOperator) {
    ComPtr<IDispatch> made = comparison(name, sqlOperator);
    put(made.get(), L"", {L"FInputCtlType", L"1"});
    put(made.get(), L"", {L"FDataFieldIndex", L"2"});    // the key, not the caption
    put(made.get(), L"", {L"FDataSourceType", LONG{3}}); // the field's FLookUpList
    return made;
}

using Records = std::vector<ComPtr<IDispatch>>;

/// The comparisons of a field, in the order of the list.
Records comparisons(LONG set) {
    switch (set) {
    case dateColumn:
        return {comparison(L"等于", L"="), comparison(L"大于等于", L">="), comparison(L"小于等于", L"<="),
                comparison(L"介于", L" BETWEEN "), comparison(L"今天", L"=", L"TODAY")};
    case textColumn:
        return {comparison(L"等于", L"="), comparison(L"包含", L" LIKE "), comparison(L"不包含", L" NOT LIKE ")};
    case stateColumn:
        return {choice(L"等于", L"="), choice(L"不等于", L"<>")};
    default:
        return {comparison(L"等于", L"="), comparison(L"大于", L">"), comparison(L"小于", L"<")};
    }
}

} // namespace

DataService::DataService()
    : LateBound({L"ClassTypeID", L"SelectList", L"ClassTypeEntry", L"TableInfo", L"ClassType", L"TypeList",
                 L"rsAllBase", L"getCondition"}) {}

Variant DataService::answer(const Call& call) {
    if (call.member == L"ClassTypeID") {
        if (!call.isWrite)
            return classTypeId_;
        classTypeId_ = call.argument(0).number();
        if (classTypeId_ != receipts)
            throw Failure{E_INVALIDARG, L"no class type " + std::to_wstring(classTypeId_)};
        using Entries = std::initializer_list<std::pair<std::wstring, Variant>>;
        classType_ = make<Dictionary>(Entries{{L"FID", receipts}, {L"FName", L"收款单"}});
        pages_ = make<Collection>(Records{make<Dictionary>(Entries{{L"FName", L"单据头"}, {L"FEntryType", LONG{0}}})});
        fields_ = make<Dictionary>(Entries{
            {L"FDate", field(L"FDate", L"日期", dateColumn, L"t_Receipt.FDate", dateColumn).get()},
            {L"FCustomer", field(L"FCustomer", L"客户", textColumn, L"t_Receipt.FCustomer", textColumn).get()},
            {L"FAmount", field(L"FAmount", L"金额", amountColumn, L"t_Receipt.FAmount", amountColumn).get()},
            {L"FStatus", listField(L"FStatus", L"状态", L"t_Receipt.FStatus", L"VALUELIST{0=未审核,1=已审核}").get()},
        });
        selectList_ = make<Collection>(
            Records{selectable(L"FDate"), selectable(L"FCustomer"), selectable(L"FAmount"), selectable(L"FStatus")});
        return {};
    }
    if (call.member == L"SelectList")
        return selectList_.get();
    if (call.member == L"ClassTypeEntry")
        return pages_.get();
    if (call.member == L"TableInfo")
        return fields_.get();
    if (call.member == L"ClassType")
        return classType_.get();
    if (call.member == L"getCondition")
        return make<Collection>(comparisons(call.argument(0).number())).get();
    if (call.member == L"TypeList")
        return false;
    return static_cast<IDispatch*>(nullptr); // rsAllBase: no field here has base data to look up
}
