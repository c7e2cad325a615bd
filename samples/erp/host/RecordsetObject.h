#pragma once

#include "erp/db/Database.h"
#include "erp/host/MemberObject.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace orv::erp {

/// A recordset with the member names of ADO: Fields(name or 0-based index).Value, Collect, RecordCount, EOF, BOF,
/// MoveFirst, MoveNext, MovePrevious, MoveLast, AbsolutePosition, Filter, Close, State. The default member is Fields.
/// Column names compare ignoring letter case. Read-only and client-side; it stands on the first record at first.
class RecordsetObject final : public MemberObject {
  public:
    static std::shared_ptr<RecordsetObject> make(ResultSet content);

    std::span<const Member> members() const override;
    std::u16string_view typeName() const override { return u"ADODB.Recordset"; }

    /// The column of a name or a 0-based position; ADO's "item not found" when there is none.
    std::size_t columnOf(const automation::Value& nameOrPosition) const;
    const std::u16string& columnName(std::size_t column) const { return content_->columns[column]; }
    std::size_t columnCount() const noexcept { return content_->columns.size(); }
    /// The column's value in the current record; ADO's "no current record" at either end.
    const automation::Value& currentValue(std::size_t column) const;

  private:
    explicit RecordsetObject(ResultSet content);

    automation::Value fields(automation::Arguments arguments);
    automation::Value collect(automation::Arguments arguments);
    automation::Value recordCount(automation::Arguments);
    automation::Value eof(automation::Arguments);
    automation::Value bof(automation::Arguments);
    void moveFirst(automation::Arguments);
    void moveNext(automation::Arguments);
    void movePrevious(automation::Arguments);
    void moveLast(automation::Arguments);
    automation::Value getPosition(automation::Arguments);
    void setPosition(automation::Arguments arguments);
    automation::Value getFilter(automation::Arguments);
    void setFilter(automation::Arguments arguments);
    void close(automation::Arguments);
    automation::Value state(automation::Arguments);

    void expectOpen() const;

    std::shared_ptr<const ResultSet> content_; ///< null when closed
    std::vector<std::size_t> selected_;        ///< rows that the filter lets through
    std::ptrdiff_t position_ = 0;              ///< in selected_; -1 is BOF, its size EOF
    automation::Value filter_;
};

/// Error numbers that recordsets raise.
namespace adoError {
inline constexpr std::int32_t wrongArgument = 3001;
inline constexpr std::int32_t noCurrentRecord = 3021;
inline constexpr std::int32_t itemNotFound = 3265;
inline constexpr std::int32_t objectClosed = 3704;
} // namespace adoError

} // namespace orv::erp
