#pragma once

#include "automation/Value.h"
#include "automation/Views.h"
#include "erp/db/Database.h"
#include "erp/host/DescribedTables.h"
#include "erp/host/LookUpDialog.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orv::erp {

/// What the list server answers for the current accounting period. What is absent is left as the caller had it.
struct PeriodAnswer {
    bool result = true;
    std::optional<std::int32_t> year;
    std::optional<std::int32_t> period;
    std::optional<automation::Date> start;
    std::optional<automation::Date> end; ///< last day of the period
};

/// How the rows of a class type are read. A join is part of the statement only when the statement names its table.
struct ListDescription {
    std::u16string from; ///< header table and its joins
    std::u16string key;  ///< expression of the bill number, one per bill
    struct Join {
        std::u16string table; ///< as the conditions name it
        std::u16string clause;
        std::u16string needs; ///< table of an earlier join that this one builds on, or empty
    };
    std::vector<Join> joins; ///< in the order in which they must stand
    /// Column that tells the rows of an entry table apart within their bill; empty when the tables have none.
    std::u16string entryKey;
};

/// One class type of a host.
struct ClassTypeDescription {
    std::int32_t id = 0;
    automation::Dictionary record;                  ///< "FID", "FName" and whatever else was written
    std::vector<automation::Dictionary> pages;      ///< items of "ClassTypeEntry"
    std::vector<automation::Dictionary> fields;     ///< field records in the order of the select list
    std::vector<automation::Dictionary> selectList; ///< given select list; empty: derived from the fields
    std::vector<std::pair<std::u16string, automation::Value>> tableInfo; ///< further entries of "TableInfo"
    bool typeList = false;
    std::optional<PeriodAnswer> period;
    std::optional<std::int32_t> clsId;
    std::optional<ListDescription> list;
};

/// Where the look-up dialogs find base data.
struct LookUpClass {
    std::int32_t id = 0;
    std::u16string table;
    std::u16string filter;                    ///< further condition, or empty
    std::u16string numberColumn = u"FNumber"; ///< by what a record is picked
    std::u16string name;                      ///< title of the dialog, or empty
    std::vector<LookUpColumn> columns;        ///< what the dialog shows; empty: number and name
};

/// A host as scenario files and the built-in metadata describe it (JSON; the format is described in
/// docs/sample-erp-host.md). A description may be given in several parts, one after another.
class HostDescription {
  public:
    /// Adds a part. AutomationError 5 names what is wrong in it: `name` stands for the part in the message.
    void add(std::string_view json, std::string_view name);

    const ClassTypeDescription* findClassType(std::int32_t id) const noexcept;
    const std::vector<ClassTypeDescription>& classTypes() const noexcept { return classTypes_; }
    /// The comparisons of a set, null when there is no such set.
    const std::vector<automation::Dictionary>* findConditions(std::u16string_view set) const;
    /// Without columns when the description does not say: table t_BaseDataField counts.
    const ResultSet& baseFields() const noexcept { return baseFields_; }
    const std::vector<DescribedTable>& tables() const noexcept { return tables_; }
    const LookUpClass* findLookUpClass(std::int32_t id) const noexcept;
    /// Whether the user may use the account, by its number.
    bool mayUseAccount(std::int32_t userId, std::u16string_view accountNumber) const;
    /// The control settings of a typical host, null when the description has none.
    const automation::Dictionary& settings() const noexcept { return settings_; }
    /// What a field record has where the class type does not say otherwise.
    const automation::Dictionary& fieldDefaults() const noexcept { return fieldDefaults_; }

  private:
    friend class DescriptionReader;
    std::vector<ClassTypeDescription> classTypes_;
    std::map<std::u16string, std::vector<automation::Dictionary>, std::less<>> conditions_;
    ResultSet baseFields_;
    std::vector<DescribedTable> tables_;
    std::vector<LookUpClass> lookUpClasses_;
    std::vector<std::pair<std::int32_t, std::u16string>> deniedAccounts_;
    automation::Dictionary settings_;
    automation::Dictionary fieldDefaults_;
};

} // namespace orv::erp
