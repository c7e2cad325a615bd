#include "SmallHost.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "schemes/SaveSchemeForm.h"

#include <utility>

namespace orv::fuzz {

using automation::Arguments;
using automation::AutomationError;
using automation::Collection;
using automation::Dictionary;
using automation::InvokeKind;
using automation::ObjectRef;
using automation::Value;
using Entries = std::initializer_list<std::pair<const char16_t*, Value>>;

namespace {

int liveCount = 0;

class HostObject final : public automation::Object {
  public:
    using Call = std::function<Value(std::u16string_view, Arguments)>;
    HostObject(Call call, int& failIn) : call_(std::move(call)), failIn_(failIn) { ++liveCount; }
    ~HostObject() override { --liveCount; }

    Value invoke(std::u16string_view member, InvokeKind, Arguments arguments) override {
        if (failIn_ > 0 && --failIn_ == 0)
            throw AutomationError(4711, u"host", u"broken");
        return call_(member, arguments);
    }

  private:
    Call call_;
    int& failIn_;
};

Dictionary makeRecord(Entries entries) {
    Dictionary made = automation::makeDictionary();
    for (const auto& [key, value] : entries)
        made.set(key, value);
    return made;
}

Collection makeList(std::initializer_list<Dictionary> records) {
    Collection made = automation::makeCollection();
    for (const Dictionary& record : records)
        made.add(record.object());
    return made;
}

Dictionary comparison(const char16_t* name, const char16_t* operation, const char16_t* value, bool input,
                      const char16_t* inputType, std::int32_t source = 0, const char16_t* items = u"") {
    return makeRecord({{u"FName", name},
                       {u"FOperate", operation},
                       {u"FValue", value},
                       {u"FInput", input},
                       {u"FInputCtlType", inputType},
                       {u"FDataFieldIndex", u"2"},
                       {u"FDataSourceType", source},
                       {u"FDataSource", items}});
}

Collection comparisons(const std::u16string& condition) {
    if (condition == u"none")
        return automation::makeCollection();
    if (condition == u"list")
        return makeList({comparison(u"等于", u"=", u"", true, u"1", 3),
                         comparison(u"不等于", u"<>", u"", true, u"1", 3),
                         comparison(u"属于", u"IN", u"", true, u"2", 0, u"甲;1,乙;2"),
                         comparison(u"其中", u"=", u"@FClassTypeID;@Other", true, u"1", 4, u"select 1")});
    return makeList(
        {comparison(u"等于", u"=", u"", true, u"0"), comparison(u"不等于", u"<>", u"", true, u"0"),
         comparison(u"包含", u"LIKE", u"", true, u"0"), comparison(u"属于", u"IN", u"", true, u"0"),
         comparison(u"介于", u" BETWEEN ", u"", true, u"0"), comparison(u"为空", u"=", u"ISNULL", false, u"0"),
         comparison(u"今天", u" BETWEEN ", u"TODAY", false, u"0"),
         comparison(u"前几天", u" BETWEEN ", u"TODAYBEFORE", true, u"0"),
         comparison(u"下月", u" BETWEEN ", u"NEXTMONTH", false, u"0"), comparison(u"怪", u"=", u"", true, u"9")});
}

constexpr double someDay = 45351.4375; // 29 February 2024, 10:30

} // namespace

int SmallHost::liveObjects() noexcept {
    return liveCount;
}

SmallHost::SmallHost()
    : fields_(automation::makeCollection()), tableInfo_(automation::makeDictionary()),
      pages_(makeList({makeRecord({{u"FName", u"单据头"}, {u"FEntryType", std::int32_t{0}}}),
                       makeRecord({{u"FName", u"明细"}, {u"FEntryType", std::int32_t{1}}}),
                       makeRecord({{u"FName", u"其他"}, {u"FEntryType", std::int32_t{1}}}),
                       makeRecord({{u"FEntryType", std::int32_t{2}}})})) {
    const auto field = [this](const char16_t* key, const char16_t* caption, std::int32_t type, std::int32_t page,
                              const char16_t* condition, Entries more) {
        const Dictionary made = makeRecord({{u"FKey", key},
                                            {u"FCaption", caption},
                                            {u"FColType", type},
                                            {u"FPage", page},
                                            {u"FCondition", condition},
                                            {u"FFieldName", std::u16string(u"t.") + key},
                                            {u"FFieldNameExt", std::u16string(u"t1.") + key}});
        for (const auto& [name, value] : more)
            made.set(name, value);
        tableInfo_.set(key, made.object());
        fields_.add(makeRecord({{u"Fkey", key}, {u"FVisible", true}}).object());
    };
    field(u"FNo", u"单号", 1, 1, u"all",
          {{u"FCtlType", std::int32_t{1}},
           {u"FLookUpType", std::int32_t{1}},
           {u"FLookUpClassID", std::int32_t{1}},
           {u"FFNDFieldName", u"FItemID"},
           {u"FDSPFieldName", u"FName"},
           {u"FFilterPanel", u"全部;NONE,空;@Field=''"}});
    field(u"FDate", u"日期", 0, 1, u"all", {{u"FVisible", true}});
    field(u"FTime", u"时间", 0, 1, u"all", {{u"FSourceType", std::int32_t{13}}});
    field(u"FQty", u"数量", 2, 2, u"all", {{u"FKeyWord", u"QTY"}});
    field(u"FAmount", u"金额+借方", 6, 2, u"all",
          {{u"FKeyWord", u"AMOUNT"}, {u"FProperty", u"A"}, {u"FFilterPanel", u"全部;NONE,大;@field>1"}});
    field(u"FKind", u"类型", 1, 2, u"list", {{u"FLookUpList", u"VALUELIST{1=甲,2=乙}"}});
    field(u"FAccount", u"科目", 500, 3, u"all", {{u"FLookUpType", std::int32_t{4}}});
    field(u"FRaw", u"原样", 501, 3, u"all", {});
    field(u"FBare", u"无比较", 1, 4, u"none", {{u"FParentKey", u"FNo"}});
}

SmallHost::~SmallHost() = default;

ObjectRef SmallHost::object(Call call) {
    return std::make_shared<HostObject>(std::move(call), failIn);
}

ObjectRef SmallHost::dataService(std::int32_t classTypeId) {
    return object([this, id = Value(classTypeId)](std::u16string_view member, Arguments arguments) mutable -> Value {
        if (member == u"ClassTypeID") {
            if (!arguments.empty())
                id = arguments[0].value();
            return id;
        }
        if (member == u"SelectList")
            return fields_.object();
        if (member == u"ClassTypeEntry")
            return pages_.object();
        if (member == u"TableInfo")
            return tableInfo_.object();
        if (member == u"ClassType") {
            std::u16string name = u"收款单据";
            for (const ClassTypeItem& item : classTypes)
                if (item.id == automation::toInt32(id))
                    name = item.name;
            return makeRecord({{u"FID", id}, {u"FName", name}}).object();
        }
        if (member == u"getCondition")
            return comparisons(automation::toText(arguments[0].value())).object();
        if (member == u"TypeList")
            return false;
        throw AutomationError::runtime(automation::errorNumber::memberNotFound);
    });
}

ObjectRef SmallHost::schemes() {
    return object([this](std::u16string_view member, Arguments arguments) -> Value {
        if (member == u"GetProfileList") {
            Collection rows = makeList({makeRecord({{u"FSchemeID", std::int32_t{1}},
                                                    {u"FSchemeName", u"Default Schema"},
                                                    {u"FUserID", std::int32_t{1}},
                                                    {u"FIsShare", std::int32_t{0}}})});
            for (const auto& [id, scheme] : schemes_)
                rows.add(makeRecord({{u"FSchemeID", id},
                                     {u"FSchemeName", scheme.name},
                                     {u"FUserID", std::int32_t{id % 3 == 0 ? 2 : 1}},
                                     {u"FIsShare", scheme.share}})
                             .object());
            return rows.object();
        }
        if (member == u"GetProfile") {
            const auto known = schemes_.find(automation::toInt32(arguments[1].value()));
            return (known == schemes_.end() ? automation::makeDictionary() : known->second.entry).object();
        }
        if (member == u"SaveProfile") {
            const Dictionary header(automation::toObject(arguments[1].value()));
            std::int32_t id = automation::toInt32(header.get(u"FSchemeID"));
            if (id < 2)
                id = static_cast<std::int32_t>(schemes_.size()) + 10;
            header.set(u"FSchemeID", id);
            schemes_[id] = {automation::toText(header.get(u"FSchemeName")),
                            automation::toInt32(header.get(u"FIsShare")),
                            Dictionary(automation::toObject(arguments[2].value())).cloneAll()};
            return {};
        }
        if (member == u"DelProfile")
            return schemes_.erase(automation::toInt32(arguments[1].value())) == 1;
        if (member == u"GetUserProfile")
            return lastUsed_;
        if (member == u"SaveUserProfile") {
            lastUsed_ = automation::toText(arguments[3].value());
            return {};
        }
        throw AutomationError::runtime(automation::errorNumber::memberNotFound);
    });
}

ObjectRef SmallHost::lookUps() {
    return object([this](std::u16string_view member, Arguments arguments) -> Value {
        if (member == u"ReturnObject" || member == u"BillTableDataChoose") {
            if (lookUpAnswer.empty())
                return ObjectRef();
            return object([this](std::u16string_view, Arguments column) -> Value {
                return automation::toText(column[0].value()) == u"FGroupID" ? Value(std::int32_t{101}) : lookUpAnswer;
            });
        }
        if (member == u"ReturnOK")
            return true;
        if (member == u"ExistenceCheck")
            return std::int32_t{automation::toText(arguments[0].value()).empty() ? 0 : 7};
        if (member == u"HaveRightCheck")
            return answersYes;
        return {};
    });
}

ObjectRef SmallHost::create(std::u16string_view progId) {
    if (progId == u"ORVClassTpl.DataSrv")
        return dataService(0);
    if (progId.starts_with(u"ORVMProfile."))
        return schemes();
    if (progId == u"ORVEBCGLView.GLView" || progId == u"ORVEBSGLAccount.AccountInfo" ||
        progId == u"ORVClassLookUp.SingleBillLookUp" || progId == u"ORVClassTpl.clsdoAction")
        return lookUps();
    if (progId == u"ORVPropsMgr.ShareProps")
        return object([](std::u16string_view, Arguments) -> Value { return u"UserID=1;UserName=u;Language=CHS"; });
    if (progId == u"ORVMClass.ClassInfo")
        return object([this](std::u16string_view member, Arguments arguments) -> Value {
            if (member != u"GetClassType")
                throw AutomationError::runtime(automation::errorNumber::memberNotFound);
            classTypeFilter = automation::toText(arguments[1].value());
            Collection list = automation::makeCollection();
            for (const ClassTypeItem& item : classTypes)
                list.add(makeRecord({{u"FID", item.id}, {u"FName", item.name}}).object());
            return list.object();
        });
    if (progId == u"ORVConnection.AppConnection" || progId == u"ORVEBCGLView.GLData") {
        // A recordset of one record, whose every column is the date; people have no names here.
        const bool isClock = progId == u"ORVEBCGLView.GLData";
        return object([this, isClock](std::u16string_view, Arguments) -> Value {
            return object([this, isClock](std::u16string_view member, Arguments) -> Value {
                if (member == u"EOF")
                    return !isClock;
                return object([](std::u16string_view, Arguments) -> Value { return automation::Date{someDay}; });
            });
        });
    }
    if (progId == u"ORVListServer.clsListServer")
        return object([](std::u16string_view, Arguments arguments) -> Value {
            arguments[1].assign(std::int32_t{2024});
            arguments[2].assign(std::int32_t{2});
            arguments[3].assign(automation::Date{45323});
            arguments[4].assign(automation::Date{45351});
            return true;
        });
    throw AutomationError::runtime(automation::errorNumber::cannotCreateObject);
}

ui::MessageAnswer SmallHost::message(const std::u16string&, std::int32_t style, const std::u16string&) {
    if (style != ui::messageStyle::yesNoInformation)
        return ui::MessageAnswer::ok;
    return answersYes ? ui::MessageAnswer::yes : ui::MessageAnswer::no;
}

void SmallHost::showModal(ui::Dialog& dialog) {
    if (auto* form = dynamic_cast<schemes::SaveSchemeForm*>(&dialog); form != nullptr && !typedSchemeName.empty()) {
        form->txtSchemeName.setText(typedSchemeName);
        form->cmdOk.press();
    }
    if (dialog.isOpen())
        dialog.close();
}

} // namespace orv::fuzz
