#include "faults/FaultyHost.h"

#include "automation/AutomationError.h"
#include "erp/HostTesting.h"
#include "schemes/SaveSchemeForm.h"

namespace orv::faults {

using automation::Arguments;
using automation::InvokeKind;
using automation::ObjectRef;
using automation::Value;

namespace {

/// Counts the host's own code as running for the length of a scope.
class InHost {
  public:
    explicit InHost(Strike& strike) : strike_(strike) { ++strike_.inHost; }
    ~InHost() { --strike_.inHost; }
    InHost(const InHost&) = delete;
    InHost& operator=(const InHost&) = delete;

  private:
    Strike& strike_;
};

/// An object of the host whose every member counts as a call; so do those of the objects that it hands out.
class WatchedObject final : public automation::Object {
  public:
    WatchedObject(ObjectRef inner, Strike& strike) : inner_(std::move(inner)), strike_(strike) {}

    Value invoke(std::u16string_view member, InvokeKind kind, Arguments arguments) override {
        // What the host's own code asks of its records is no call of the control's.
        if (strike_.inHost == 0 && strike_.called(member.empty() ? inner_->typeName() : member))
            return *strike_.spoiled;
        const InHost running(strike_);
        Value answer = inner_->invoke(member, kind, arguments);
        const auto* object = answer.getIf<ObjectRef>();
        return object != nullptr && *object ? Value(ObjectRef(std::make_shared<WatchedObject>(*object, strike_)))
                                            : answer;
    }
    std::u16string_view typeName() const override { return inner_->typeName(); }

  private:
    ObjectRef inner_;
    Strike& strike_;
};

constexpr const char* description = R"({
  "classTypes": [{
    "FID": 1000201, "FName": "收款单据",
    "period": {"year": 2024, "period": 2, "start": "2024-02-01", "end": "2024-02-29"},
    "pages": [{"FName": "单据头", "FEntryType": 0}, {"FName": "明细", "FEntryType": 1}, {"FName": "其他", "FEntryType": 1}],
    "fields": [
      {"FKey": "FNo", "FCaption": "单号", "FColType": 1, "FFieldName": "t.FNo", "FFieldNameExt": "t.FNo", "FPage": 1,
       "FCondition": "all", "FMustGet": 1, "FLookUpType": 1, "FLookUpClassID": 1, "FLookUpCLassID": 1,
       "FFNDFieldName": "FItemID", "FDSPFieldName": "FName", "FFilterPanel": "全部;NONE,空;@Field=''"},
      {"FKey": "FKind", "FCaption": "类型", "FColType": 2, "FFieldName": "t.FKind", "FFieldNameExt": "t.FKind",
       "FPage": 2, "FCondition": "list", "FLookUpList": "VALUELIST{1=甲,2=乙}", "FFilterPanel": "全部;NONE,甲;@Field=1"},
      {"FKey": "FFar", "FCaption": "远", "FColType": 1, "FFieldName": "t.FFar", "FFieldNameExt": "t.FFar",
       "FPage": 3, "FCondition": "all", "FFilterPanel": "全部;NONE"},
      {"FKey": "FDate", "FCaption": "日期", "FColType": 0, "FFieldName": "t.FDate", "FFieldNameExt": "t.FDate",
       "FPage": 1, "FCondition": "all", "FSourceType": 13},
      {"FKey": "FAccount", "FCaption": "科目", "FColType": 500, "FFieldName": "t.FAccount", "FFieldNameExt": "t.FAccount",
       "FPage": 1, "FCondition": "all", "FLookUpType": 4, "FDSPFieldName": "FNumber"},
      {"FKey": "FAmount", "FCaption": "金额+借方", "FColType": 6, "FFieldName": "t.FAmount", "FFieldNameExt": "t.FAmount",
       "FPage": 2, "FCondition": "all", "FKeyWord": "AMOUNT", "FProperty": "FAmount", "FTableName": "t_Item"}
    ]
  }, {
    "FID": 1000202, "FName": "付款单据",
    "pages": [{"FName": "单据头", "FEntryType": 0}],
    "fields": [
      {"FKey": "FOther", "FCaption": "其他", "FColType": 1, "FFieldName": "t.FOther", "FFieldNameExt": "t.FOther",
       "FPage": 1, "FCondition": "all"}]
  }],
  "conditions": {
    "all": [
      {"FName": "等于", "FOperate": "=", "FInput": true, "FInputCtlType": "0"},
      {"FName": "今天", "FOperate": " BETWEEN ", "FValue": "TODAY", "FInput": false, "FInputCtlType": "0"}],
    "list": [
      {"FName": "等于", "FOperate": "=", "FInput": true, "FInputCtlType": "1", "FDataFieldIndex": "2",
       "FDataSourceType": 3},
      {"FName": "其中", "FOperate": "=", "FInput": true, "FInputCtlType": "1", "FDataFieldIndex": "2",
       "FDataSourceType": 4, "FValue": "@FClassTypeID",
       "FDataSource": "select FName, FUserID from t_user where FUserID<@FClassTypeID"}]
  },
  "settings": {"ShowScheme": true, "Lookup": {"no": "FNo"}, "AccessMask": {"SECRET": 0}}
})";

} // namespace

bool Strike::called(std::u16string_view member) {
    if (++calls != at)
        return false;
    struck = member;
    if (action)
        action();
    return spoiled.has_value();
}

ObjectRef FaultyHost::watched(ObjectRef object) {
    return std::make_shared<WatchedObject>(std::move(object), strike);
}

ObjectRef FaultyHost::create(std::u16string_view progId) {
    strike.called(progId);
    const InHost running(strike);
    return watched(erp_->create(progId));
}

ObjectRef FaultyHost::shared(std::u16string_view progId) {
    strike.called(progId);
    const InHost running(strike);
    return watched(erp_->shared(progId));
}

ObjectRef FaultyHost::dataService(std::int32_t classTypeId) {
    const InHost running(strike);
    return watched(erp_->dataService(classTypeId));
}

/// A box may run any code of the host's, but does not fail itself.
void FaultyHost::calledFromBox(std::u16string_view kind) {
    try {
        strike.called(kind);
    } catch (const automation::AutomationError&) {
    }
}

ui::MessageAnswer FaultyHost::message(const std::u16string& text, std::int32_t style, const std::u16string&) {
    {
        const InHost running(strike);
        messages.push_back(text);
    }
    calledFromBox(u"a message box");
    return style == ui::messageStyle::yesNoInformation ? ui::MessageAnswer::yes : ui::MessageAnswer::ok;
}

void FaultyHost::showModal(ui::Dialog& dialog) {
    calledFromBox(u"a dialog");
    if (auto* form = dynamic_cast<schemes::SaveSchemeForm*>(&dialog); form != nullptr && !schemeName.empty()) {
        form->txtSchemeName.setText(schemeName);
        form->cmdOk.press();
    }
    if (dialog.isOpen())
        dialog.close();
}

std::shared_ptr<erp::ErpHost> openSmallErp() {
    return erp::testing::describe(description);
}

} // namespace orv::faults
