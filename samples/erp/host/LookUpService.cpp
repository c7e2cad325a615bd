#include "erp/host/LookUpService.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/Records.h"
#include "erp/host/MemberObject.h"

namespace orv::erp {

using automation::Arguments;
using automation::Dictionary;
using automation::ObjectRef;
using automation::Value;

namespace {

class ChosenRecord final : public MemberObject {
  public:
    explicit ChosenRecord(Dictionary columns) : columns_(std::move(columns)) {}
    std::span<const Member> members() const override {
        static constexpr Member table[] = {asDefault(readOnly<&ChosenRecord::properties>(u"Properties", 1, 1))};
        return table;
    }
    std::u16string_view typeName() const override { return u"ChosenRecord"; }

  private:
    Value properties(Arguments arguments) {
        return columns_.getValue(automation::toText(arguments[0].value()), std::u16string());
    }
    Dictionary columns_;
};

ObjectRef recordOf(const ResultSet& rows) {
    if (rows.rows.empty())
        return nullptr;
    const Dictionary columns = automation::makeDictionary();
    for (std::size_t column = 0; column < rows.columns.size(); ++column)
        columns.set(rows.columns[column], rows.rows[0][column]);
    return std::make_shared<ChosenRecord>(columns);
}

} // namespace

ObjectRef chooseBaseData(HostState& state, std::int32_t lookUpClass) {
    const LookUpAnswer answer = state.lookUps.take();
    if (answer.cancelled)
        return nullptr;
    if (answer.properties)
        return std::make_shared<ChosenRecord>(answer.properties);
    const LookUpClass* place = state.description.findLookUpClass(lookUpClass);
    if (place == nullptr)
        throw automation::AutomationError(automation::errorNumber::invalidCall, u"ORVEBCGLView.GLView",
                                          u"没有基础资料类别 " + automation::toText(lookUpClass));
    std::u16string sql = u"SELECT * FROM " + place->table + u" WHERE " + place->numberColumn + u"=?";
    if (!place->filter.empty())
        sql += u" AND (" + place->filter + u")";
    const Value number[] = {answer.number};
    return recordOf(state.database.query(sql, number));
}

ObjectRef chooseBill(HostState& state, std::int32_t classTypeId) {
    const LookUpAnswer answer = state.lookUps.take();
    if (answer.cancelled)
        return nullptr;
    if (answer.properties)
        return std::make_shared<ChosenRecord>(answer.properties);
    const auto* type = state.description.findClassType(classTypeId);
    if (type == nullptr || !type->list)
        throw automation::AutomationError(automation::errorNumber::invalidCall, u"ORVClassLookUp.SingleBillLookUp",
                                          u"没有单据类型 " + automation::toText(classTypeId));
    const Value number[] = {answer.number};
    return recordOf(state.database.query(u"SELECT " + type->list->key + u" AS FNumber, " + type->list->key +
                                             u" AS FBillNo FROM " + type->list->from + u" WHERE " + type->list->key +
                                             u"=?",
                                         number));
}

} // namespace orv::erp
