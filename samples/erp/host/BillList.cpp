#include "erp/host/BillList.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "erp/host/DisplayText.h"
#include "erp/host/ShownText.h"

#include <algorithm>
#include <map>
#include <set>
#include <unordered_map>
#include <unordered_set>

namespace orv::erp {

using automation::Dictionary;
using automation::Value;

namespace {

const Dictionary* fieldOf(const ClassTypeDescription& type, std::u16string_view key) {
    const auto found = std::ranges::find_if(
        type.fields, [key](const Dictionary& field) { return automation::toText(field.get(u"FKey")) == key; });
    return found == type.fields.end() ? nullptr : &*found;
}

/// What tells apart the bills (page 1) or the entries of a page; "" for an entry table without a key.
std::u16string keyOfPage(const ClassTypeDescription& type, std::int32_t page) {
    if (page <= 1)
        return type.list->key;
    const auto index = static_cast<std::size_t>(page - 1);
    const std::u16string table = index < type.pages.size() ? entryText(type.pages[index], u"FTableName") : u"";
    return table.empty() || type.list->entryKey.empty() ? u"" : table + u"." + type.list->entryKey;
}

/// A page that is shown, with the place of its key among the statement's columns.
struct Page {
    std::int32_t number;
    std::size_t keyPlace;
};

class BillListBuilder {
  public:
    BillListBuilder(const ClassTypeDescription& type, std::span<const BillColumn> columns)
        : type_(type), columns_(columns) {
        std::set<std::int32_t> numbers{1};
        for (const BillColumn& column : columns)
            numbers.insert(std::max(column.page, 1));
        for (const BillColumn& column : columns)
            add(column.expression, column.key);
        for (const std::int32_t number : numbers)
            if (const std::u16string key = keyOfPage(type, number); !key.empty()) {
                pages_.push_back({number, width_});
                add(key, u"FListKey" + automation::numberToText(number));
            }
    }

    const std::u16string& selectList() const noexcept { return selectList_; }

    BillList build(std::u16string sql, ResultSet found, const Database& database) const {
        BillList list;
        list.sql = std::move(sql);
        list.sums.resize(columns_.size());
        const std::vector<ShownText> shown = shownTexts(database);
        list.records.columns.assign(found.columns.begin(),
                                    found.columns.begin() + static_cast<std::ptrdiff_t>(columns_.size()));
        for (const Page& page : pages_)
            list.records.columns.push_back(u"FListNew" + automation::numberToText(page.number));
        std::unordered_set<std::u16string> rows;
        std::map<std::int32_t, std::unordered_set<std::u16string>> records; // by page
        std::map<std::int32_t, std::u16string> above;
        // An entry table without a key: each of its rows is a record.
        const bool everyRowCounts = std::ranges::any_of(columns_, [this](const BillColumn& column) {
            return std::ranges::find(pages_, std::max(column.page, 1), &Page::number) == pages_.end();
        });
        for (std::vector<Value>& row : found.rows) {
            std::u16string identity;
            std::map<std::int32_t, std::u16string> keys;
            for (const Page& page : pages_) {
                // Entries are numbered within their bill.
                keys[page.number] = keys[1] + u'\n' + automation::toText(keyText(row[page.keyPlace]));
                identity += keys[page.number];
            }
            if (!rows.insert(identity).second && !everyRowCounts)
                continue;
            std::map<std::int32_t, bool> isFirst;
            for (const Page& page : pages_)
                isFirst[page.number] = records[page.number].insert(keys[page.number]).second;
            for (std::size_t i = 0; i < columns_.size(); ++i) {
                const auto first = isFirst.find(std::max(columns_[i].page, 1));
                if (columns_[i].isSummed && (first == isFirst.end() || first->second) && !row[i].isNull())
                    list.sums[i] += automation::toNumber(row[i]);
            }
            row.resize(columns_.size());
            for (std::size_t i = 0; i < columns_.size(); ++i)
                shown[i].apply(row[i]);
            for (const Page& page : pages_)
                row.emplace_back(!above.contains(page.number) || above[page.number] != keys[page.number]);
            above = std::move(keys);
            list.records.rows.push_back(std::move(row));
        }
        list.bills = records[1].size();
        return list;
    }

  private:
    void add(const std::u16string& expression, const std::u16string& name) {
        selectList_ += (selectList_.empty() ? u"" : u", ") + expression + u" AS " + name;
        ++width_;
    }

    static Value keyText(const Value& key) { return key.isNull() ? Value(std::u16string()) : key; }

    std::vector<ShownText> shownTexts(const Database& database) const {
        std::vector<ShownText> all;
        for (const BillColumn& column : columns_) {
            const Dictionary* field = fieldOf(type_, column.key);
            all.push_back(field ? ShownText::ofField(*field, database) : ShownText());
        }
        return all;
    }

    const ClassTypeDescription& type_;
    std::span<const BillColumn> columns_;
    std::u16string selectList_;
    std::size_t width_ = 0;
    std::vector<Page> pages_;
};

} // namespace

BillList runBillList(const Database& database, const ClassTypeDescription& type, std::span<const BillColumn> columns,
                     const ListTexts& texts) {
    if (!type.list)
        throw automation::AutomationError(automation::errorNumber::invalidCall, u"ORVErp.Host",
                                          u"单据类型 " + automation::toText(type.id) + u" 没有列表");
    const BillListBuilder builder(type, columns);
    std::u16string sql = listSql(*type.list, texts, builder.selectList());
    ResultSet found = database.query(sql);
    return builder.build(std::move(sql), std::move(found), database);
}

std::vector<BillColumn> usualColumns(const ClassTypeDescription& type, std::size_t most) {
    std::vector<BillColumn> columns;
    for (const Dictionary& field : type.fields) {
        if (columns.size() == most)
            break;
        const bool isShown = automation::toBoolean(field.getValue(u"FVisible", true)) &&
                             entryText(field, u"FParentKey").empty() &&
                             automation::toInt32(field.getValue(u"FPage", std::int32_t{1})) == 1;
        if (isShown)
            columns.push_back({.key = entryText(field, u"FKey"),
                               .expression = entryText(field, u"FFieldNameExt"),
                               .caption = entryText(field, u"FCaption")});
    }
    return columns;
}

} // namespace orv::erp
