#pragma once

#include "automation/ObjectFactory.h"
#include "automation/Views.h"
#include "erp/host/CallLog.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orv::erp {

class Database;
class LookUpDialog;
struct HostState;

struct BillColumn;
struct BillList;

struct HostOptions {
    std::string databasePath = ":memory:"; ///< UTF-8
    /// User properties string; when empty that of user 1 of the database, in Simplified Chinese.
    std::u16string props;
    /// What getdate() answers (days since 30 December 1899); the real clock when absent.
    std::optional<double> now;
};

/// What a list window shows of a class type's bills.
struct ListResult {
    std::size_t rows = 0;  ///< rows of the statement: one per entry where a condition or the sort names an entry table
    std::size_t bills = 0; ///< different bills among them
    std::vector<std::u16string> firstKeys; ///< numbers of the first bills, in order
    std::u16string sql;
};

/// The middle tier of the sample ERP: its components, late-bound, over a database of its own.
///
/// Components and data services live on without the host; one thread at a time uses all of them.
class ErpHost : public automation::ObjectFactory {
  public:
    /// The built-in ERP.
    static std::shared_ptr<ErpHost> open(const HostOptions& options);
    /// A host that a scenario file describes (JSON, UTF-8). Its tables, and nothing but them, stand beside the system
    /// tables in a database in memory; `options.databasePath` is not used.
    static std::shared_ptr<ErpHost> described(std::string_view json, const HostOptions& options);
    ~ErpHost() override;

    /// A new component; 429 when the host has none of that name.
    automation::ObjectRef create(std::u16string_view progId) override;
    automation::ObjectRef shared(std::u16string_view progId) override;
    std::vector<std::u16string> progIds() const;

    /// What a list window hands to the control; error 5 for an unknown class type.
    automation::ObjectRef dataService(std::int32_t classTypeId);
    /// The control settings (`dctControl`) of a typical host, as a new dictionary.
    automation::Dictionary defaultSettings();

    /// The user properties string that components are called with from now on.
    void setProps(std::u16string props);
    const std::u16string& props() const noexcept;

    /// Who shows the look-ups that no answer waits for; with null, as at first, they are cancelled.
    void setLookUpDialog(std::shared_ptr<LookUpDialog> dialog);
    /// Answers for look-up dialogs to come, in order, which are not shown then.
    /// The record of that number (FNumber of base data, the bill number of a bill) is chosen, or
    void queueLookUp(std::u16string_view number);
    /// a record with these columns is, or
    void queueLookUp(automation::Dictionary properties);
    /// the dialog is cancelled.
    void queueLookUpCancel();
    /// Drops the answers that no dialog took.
    void clearLookUps();

    /// Makes the next call of `progId`.`member` fail; an empty member means its creation.
    void failNext(std::u16string_view progId, std::u16string_view member, std::int32_t number,
                  std::u16string_view description);
    /// The calls that components received, the creation of each included (an empty member).
    const std::vector<RecordedCall>& calls() const noexcept;
    void clearCalls();

    /// Runs the list of a class type with the control's filter and sort texts ("" for none).
    ListResult list(std::int32_t classTypeId, std::u16string_view where, std::u16string_view headSort,
                    std::u16string_view entrySort, std::size_t firstKeys);

    /// The same with the columns that the control's `m_Header` says.
    BillList billList(std::int32_t classTypeId, std::span<const BillColumn> columns, std::u16string_view where,
                      std::u16string_view headSort, std::u16string_view entrySort);

    /// Makes a user of the database the logged-on one, by his name ("": user 1); error 5 when there is none, or he is
    /// disabled. `language`: "CHS", "CHT" or "EN".
    void logOn(std::u16string_view user, std::u16string_view language);
    /// Sets the server's clock.
    void setNow(automation::Date now);
    /// The class types in the host's order: their records, as copies.
    automation::Collection classTypes();

    Database& database() noexcept;

  private:
    explicit ErpHost(std::shared_ptr<HostState> state);

    std::shared_ptr<HostState> state_;
    std::map<std::u16string, automation::ObjectRef> shared_; ///< by upper-cased ProgID
};

} // namespace orv::erp
