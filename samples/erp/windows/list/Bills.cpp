#include "erp/windows/list/Bills.h"

#include "erp/windows/list/CellText.h"

#include <algorithm>
#include <cmath>

namespace orv::erp {

using ole::Object;

namespace {

/// Rows that are kept; a screen shows far less.
constexpr std::size_t mostKeptRows = 4096;

_variant_t entry(const Object& record, const wchar_t* key) {
    return record.read(L"GetValue", _bstr_t(key), _variant_t(L""));
}

double numberOf(_variant_t value) {
    ole::check(VariantChangeType(&value, &value, 0, VT_R8), L"number");
    return value.dblVal;
}

/// Key to caption; the header's dictionary maps captions back to keys as well.
std::map<std::wstring, std::wstring> valueTexts(const Object& list) {
    std::map<std::wstring, std::wstring> texts;
    const Object keys(list.read(L"Keys"));
    const long count = keys.readNumber(L"Count");
    for (long i = 1; i <= count; ++i) {
        const _variant_t key = keys.read(L"Item", i);
        texts[ole::textOf(key)] = ole::textOf(list.read(L"Value", key));
    }
    return texts;
}

ListColumn columnOf(const Object& record) {
    ListColumn column;
    column.key = ole::textOf(entry(record, L"FKey"));
    column.first = ole::textOf(entry(record, L"FColCaption"));
    column.second = ole::textOf(entry(record, L"FHeadSecond"));
    column.widthMm = numberOf(entry(record, L"FWidth"));
    column.isShown = numberOf(entry(record, L"FVisible")) != 0;
    column.isSummed = numberOf(entry(record, L"FNeedCount")) != 0;
    column.type = std::lround(numberOf(entry(record, L"FColType")));
    column.page = std::lround(numberOf(entry(record, L"FPage")));
    column.decimalKey = ole::textOf(entry(record, L"DecimalKey"));
    if (const _variant_t list = entry(record, L"VALUELIST"); list.vt == VT_DISPATCH)
        column.valueTexts = valueTexts(Object(list));
    return column;
}

long millisecondsSince(LARGE_INTEGER start) {
    LARGE_INTEGER now, perSecond;
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&perSecond);
    return static_cast<long>((now.QuadPart - start.QuadPart) * 1000 / perSecond.QuadPart);
}

} // namespace

std::vector<ListColumn> columnsOf(const Object& header) {
    std::vector<ListColumn> columns;
    const long count = header.readNumber(L"Count");
    for (long i = 1; i <= count; ++i)
        columns.push_back(columnOf(Object(header.read(L"Item", i))));
    return columns;
}

Bills::Bills(const Object& host, const FilterResult& filter)
    : columns_(columnsOf(filter.header)), showsAllHeaders_(filter.showsAllHeaders) {
    for (std::size_t i = 0; i < columns_.size(); ++i)
        if (columns_[i].isShown) {
            places_.push_back(i);
            shown_.push_back(columns_[i]);
        }
    if (shown_.empty())
        return;
    LARGE_INTEGER start;
    QueryPerformanceCounter(&start);
    const Object list(host.call(L"BillList", filter.classType, filter.header, ole::toBstr(filter.where),
                                ole::toBstr(filter.headSort), ole::toBstr(filter.entrySort)));
    milliseconds_ = millisecondsSince(start);
    records_ = Object(list.read(L"Value", _bstr_t(L"Records")));
    sql_ = ole::textOf(list.read(L"Value", _bstr_t(L"SQL")));
    rows_ = static_cast<int>(numberOf(list.read(L"Value", _bstr_t(L"Rows"))));
    bills_ = static_cast<int>(numberOf(list.read(L"Value", _bstr_t(L"Bills"))));
    const Object fields(records_.read(L"Fields"));
    const long count = fields.readNumber(L"Count");
    const std::wstring mark = L"FListNew";
    for (auto i = static_cast<long>(columns_.size()); i < count; ++i)
        pages_.push_back(std::stol(Object(fields.read(L"Item", i)).readText(L"Name").substr(mark.size())));
    const Object sums(list.read(L"Value", _bstr_t(L"Sums")));
    for (const ListColumn& column : shown_)
        totals_.push_back(column.isSummed ? sumText(column, numberOf(sums.read(L"Value", ole::toBstr(column.key))))
                                          : std::wstring());
}

const Bills::Row& Bills::row(int index) const {
    if (const auto known = read_.find(index); known != read_.end())
        return known->second;
    if (read_.size() >= mostKeptRows)
        read_.clear();
    return read_.emplace(index, read(index)).first->second;
}

long Bills::placeOf(const std::wstring& key) const {
    const auto found = std::ranges::find(columns_, key, &ListColumn::key);
    return found == columns_.end() ? -1 : static_cast<long>(found - columns_.begin());
}

Bills::Row Bills::read(int index) const {
    records_.write(L"AbsolutePosition", long{index} + 1);
    std::map<long, bool> begins;
    for (std::size_t i = 0; i < pages_.size(); ++i)
        begins[pages_[i]] = numberOf(records_.read(L"Collect", static_cast<long>(columns_.size() + i))) != 0;
    Row row;
    for (std::size_t i = 0; i < shown_.size(); ++i) {
        const ListColumn& column = shown_[i];
        // A bill with several entries counts once: its amounts stand in the first row of it, unless the scheme wants
        // its fields on every row.
        const auto begin = begins.find(std::max(column.page, 1L));
        const bool isRepeated = !showsAllHeaders_ && begin != begins.end() && !begin->second;
        if (isRepeated && column.isSummed) {
            row.push_back({{}, true});
            continue;
        }
        int decimals = usualDecimals;
        if (const long place = placeOf(column.decimalKey); place >= 0)
            if (const _variant_t own = records_.read(L"Collect", place); own.vt != VT_NULL)
                decimals = static_cast<int>(numberOf(own));
        row.push_back(
            {cellText(column, records_.read(L"Collect", static_cast<long>(places_[i])), decimals), isRepeated});
    }
    return row;
}

} // namespace orv::erp
