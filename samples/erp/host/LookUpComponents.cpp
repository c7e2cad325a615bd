#include "automation/Coercion.h"
#include "automation/Views.h"
#include "erp/host/ComponentTable.h"
#include "erp/host/LookUpService.h"

namespace orv::erp {

using automation::Arguments;
using automation::Dictionary;
using automation::ObjectRef;
using automation::Value;

namespace {

/// Look-up classes with a member of their own.
namespace lookUpClass {
constexpr std::int32_t unit = 7;
constexpr std::int32_t currency = 12;
constexpr std::int32_t account = 13;
constexpr std::int32_t settleType = 130;
} // namespace lookUpClass

/// The look-up dialogs. Each call leaves its choice in ReturnObject; ReturnOK says whether there is one. What a dialog
/// returns is that too.
class GLView final : public Component {
  public:
    using Component::Component;
    std::span<const Member> members() const override {
        static constexpr Member table[] = {
            method<&GLView::itemLookUp>(u"ItemLookUp", 4),
            method<&GLView::unitLookup>(u"UnitLookup", 2),
            method<&GLView::subMesLookup>(u"SubMesLookup", 2),
            method<&GLView::currencyLookup>(u"CurrencyLookup", 1),
            method<&GLView::settTypeLookup>(u"SettTypeLookup", 1),
            method<&GLView::accountLookup>(u"AccountLookup", 1, 3),
            readOnly<&GLView::returnObject>(u"ReturnObject"),
            readOnly<&GLView::returnOk>(u"ReturnOK"),
        };
        return table;
    }

  private:
    /// (class identifier, filter, filter group, options)
    Value itemLookUp(Arguments arguments) {
        const Value& given = arguments[3].value();
        const Dictionary options(given.isObject() ? automation::toObject(given) : nullptr);
        const bool isMultiple = options && automation::toInt32(options.getValue(u"MultiSlt", std::int32_t{0})) != 0;
        return choose({automation::toInt32(arguments[0].value()), textOf(arguments[1]), {}, isMultiple});
    }
    /// (filter, unit group)
    Value unitLookup(Arguments arguments) {
        return choose({lookUpClass::unit, textOf(arguments[0]), textOf(arguments[1]), false});
    }
    /// (class identifier, filter)
    Value subMesLookup(Arguments arguments) {
        return choose({automation::toInt32(arguments[0].value()), textOf(arguments[1]), {}, false});
    }
    /// (filter)
    Value currencyLookup(Arguments arguments) {
        return choose({lookUpClass::currency, textOf(arguments[0]), {}, false});
    }
    /// (filter)
    Value settTypeLookup(Arguments arguments) {
        return choose({lookUpClass::settleType, textOf(arguments[0]), {}, false});
    }
    /// (filter), or (options, filter group, filter)
    Value accountLookup(Arguments arguments) {
        return choose({lookUpClass::account, textOf(arguments.back()), {}, false});
    }

    Value returnObject(Arguments) { return chosen_; }
    Value returnOk(Arguments) { return chosen_ != nullptr; }

    static std::u16string textOf(const automation::Argument& argument) {
        const Value& value = argument.value();
        return value.isNull() || value.isObject() || value.isMissing() ? std::u16string() : automation::toText(value);
    }
    Value choose(const BaseDataLookUp& lookUp) {
        chosen_ = nullptr;
        chosen_ = chooseBaseData(state(), lookUp);
        return chosen_ != nullptr;
    }

    ObjectRef chosen_;
};

class SingleBillLookUp final : public Component {
  public:
    using Component::Component;
    std::span<const Member> members() const override {
        static constexpr Member table[] = {
            property<&SingleBillLookUp::getClassTypeId, &SingleBillLookUp::letClassTypeId>(u"ClassTypeID"),
            property<&SingleBillLookUp::getFilter, &SingleBillLookUp::letFilter>(u"Filter"),
            property<&SingleBillLookUp::getShowType, &SingleBillLookUp::letShowType>(u"ShowType"),
            method<&SingleBillLookUp::show>(u"Show", 0, 1),
            readOnly<&SingleBillLookUp::choice>(u"BillTableDataChoose"),
            readOnly<&SingleBillLookUp::choice>(u"ReturnObject"),
            readOnly<&SingleBillLookUp::isChosen>(u"ReturnOK"),
        };
        return table;
    }

  private:
    Value getClassTypeId(Arguments) { return classTypeId_; }
    void letClassTypeId(Arguments arguments) { classTypeId_ = automation::toInt32(arguments[0].value()); }
    Value getFilter(Arguments) { return filter_; }
    void letFilter(Arguments arguments) { filter_ = automation::toText(arguments[0].value()); }
    Value getShowType(Arguments) { return showType_; }
    void letShowType(Arguments arguments) { showType_ = arguments[0].value(); }

    Value show(Arguments) {
        chosen_ = nullptr;
        chosen_ = chooseBill(state(), classTypeId_, filter_);
        return chosen_ != nullptr;
    }
    Value choice(Arguments) { return chosen_; }
    Value isChosen(Arguments) { return chosen_ != nullptr; }

    std::int32_t classTypeId_ = 0;
    std::u16string filter_;
    Value showType_;
    ObjectRef chosen_;
};

class AccountInfo final : public Component {
  public:
    using Component::Component;
    std::span<const Member> members() const override {
        static constexpr Member table[] = {
            method<&AccountInfo::existenceCheck>(u"ExistenceCheck", 5),
            method<&AccountInfo::haveRightCheck>(u"HaveRightCheck", 2),
        };
        return table;
    }

  private:
    /// (number, -, -, -, user properties): the account's identifier, 0 when there is no such account.
    Value existenceCheck(Arguments arguments) {
        const Value number[] = {automation::toText(arguments[0].value())};
        const ResultSet found = state().database.query(u"SELECT FAccountID FROM t_Account WHERE FNumber=?", number);
        return found.rows.empty() ? std::int32_t{0} : automation::toInt32(found.rows[0][0]);
    }

    /// (account identifier, user properties)
    Value haveRightCheck(Arguments arguments) {
        const Value id[] = {automation::toInt32(arguments[0].value())};
        const ResultSet found = state().database.query(u"SELECT FNumber FROM t_Account WHERE FAccountID=?", id);
        if (found.rows.empty())
            return false;
        const std::int32_t user = userIdOf(automation::toText(arguments[1].value()));
        return state().description.mayUseAccount(user, automation::toText(found.rows[0][0]));
    }
};

/// The bill interface's say in a look-up.
class DoAction final : public Component {
  public:
    using Component::Component;
    std::span<const Member> members() const override {
        static constexpr Member table[] = {
            property<&DoAction::getTableInfo, &DoAction::letTableInfo>(u"m_dctTableInfo"),
            property<&DoAction::getDataSrv, &DoAction::letDataSrv>(u"DataSrv"),
            property<&DoAction::getParent, &DoAction::letParent>(u"Parent"),
            property<&DoAction::getCurRow, &DoAction::letCurRow>(u"m_CurRow"),
            property<&DoAction::getBillInterface, &DoAction::letBillInterface>(u"BillInterface"),
            method<&DoAction::getItemFilter>(u"GetItemFilter", 2),
        };
        return table;
    }

  private:
    Value getTableInfo(Arguments) { return tableInfo_; }
    void letTableInfo(Arguments arguments) { tableInfo_ = arguments[0].value(); }
    Value getDataSrv(Arguments) { return dataSrv_; }
    void letDataSrv(Arguments arguments) { dataSrv_ = arguments[0].value(); }
    Value getParent(Arguments) { return parent_; }
    void letParent(Arguments arguments) { parent_ = arguments[0].value(); }
    Value getCurRow(Arguments) { return curRow_; }
    void letCurRow(Arguments arguments) { curRow_ = arguments[0].value(); }
    Value getBillInterface(Arguments) { return billInterface_; }
    void letBillInterface(Arguments arguments) { billInterface_ = arguments[0].value(); }

    /// (filter, field record): the filter becomes the field's own "FFilter"; True when there is one.
    Value getItemFilter(Arguments arguments) {
        const Dictionary field(automation::toObject(arguments[1].value()));
        const Value own = field.getValue(u"FFilter", std::u16string());
        const std::u16string filter = own.isNull() ? std::u16string() : automation::toText(own);
        arguments[0].assign(filter);
        return !filter.empty();
    }

    Value tableInfo_;
    Value dataSrv_;
    Value parent_;
    Value curRow_;
    Value billInterface_;
};

constexpr ComponentClass lookUpClasses[] = {
    {u"ORVEBCGLView.GLView", &makeComponent<GLView>},
    {u"ORVEBSGLAccount.AccountInfo", &makeComponent<AccountInfo>},
    {u"ORVClassLookUp.SingleBillLookUp", &makeComponent<SingleBillLookUp>},
    {u"ORVClassTpl.clsdoAction", &makeComponent<DoAction>},
};

} // namespace

std::span<const ComponentClass> lookUpComponents() {
    return lookUpClasses;
}

} // namespace orv::erp
