#include "bench/host/LargeHost.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/Records.h"

#include <initializer_list>
#include <utility>

namespace orv::bench {

using automation::Arguments;
using automation::AutomationError;
using automation::Collection;
using automation::Dictionary;
using automation::InvokeKind;
using automation::ObjectRef;
using automation::Value;

namespace {

/// Makes objects that count their calls.
class Counted {
  public:
    explicit Counted(std::shared_ptr<CallCount> count) : count_(std::move(count)) {}
    Value operator()(ObjectRef object) const {
        return Value(ObjectRef(std::make_shared<CountingObject>(std::move(object), count_)));
    }

  private:
    std::shared_ptr<CallCount> count_;
};

Dictionary record(std::initializer_list<std::pair<const char16_t*, Value>> entries) {
    const Dictionary result = automation::makeDictionary();
    for (const auto& [key, value] : entries)
        result.set(key, value);
    return result;
}

enum class FieldSort { date, number, text, list };

struct Comparison {
    const char16_t* name;
    const char16_t* sqlOperator;
    const char16_t* keyword;
    bool input;
    const char16_t* control; ///< input type
};

Collection comparisons(std::initializer_list<Comparison> list, const Counted& counted) {
    const Collection result = automation::makeCollection();
    for (const Comparison& c : list)
        result.add(counted(record({{u"FName", c.name},
                                   {u"FOperate", c.sqlOperator},
                                   {u"FValue", c.keyword},
                                   {u"FInput", c.input},
                                   {u"FInputCtlType", c.control},
                                   {u"FDataFieldIndex", u"2"},
                                   {u"FDataSourceType", std::int32_t{0}}})
                               .object()));
    return result;
}

Collection comparisonsOf(const std::u16string& set, const Counted& counted) {
    if (set == u"D")
        return comparisons({{u"等于", u"=", u"", true, u"0"},
                            {u"大于等于", u">=", u"", true, u"0"},
                            {u"介于", u" BETWEEN ", u"", true, u"0"},
                            {u"本月", u" BETWEEN ", u"THISMONTH", false, u"0"},
                            {u"为空", u"=", u"ISNULL", false, u"0"}},
                           counted);
    if (set == u"N")
        return comparisons({{u"等于", u"=", u"", true, u"0"},
                            {u"大于等于", u">=", u"", true, u"0"},
                            {u"介于", u" BETWEEN ", u"", true, u"2"},
                            {u"属于", u" IN ", u"", true, u"2"}},
                           counted);
    return comparisons({{u"等于", u"=", u"", true, u"0"},
                        {u"不等于", u"<>", u"", true, u"0"},
                        {u"包含", u" LIKE ", u"", true, u"0"},
                        {u"属于", u" IN ", u"", true, u"0"},
                        {u"选择", u"=", u"", true, u"1"},
                        {u"为空", u"=", u"ISNULL", false, u"0"}},
                       counted);
}

Dictionary fieldRecord(std::int32_t position) {
    const auto sort = static_cast<FieldSort>((position - 1) % 4);
    const std::u16string number = automation::numberToText(position);
    const bool isNumber = sort == FieldSort::number;
    const bool isAmount = isNumber && position % 9 == 0;
    const bool isList = sort == FieldSort::list;
    std::u16string caption = u"字段" + number;
    if (position % 4 == 0)
        caption = u"组" + automation::numberToText(position / 8) + u"+" + caption;
    return record({{u"FKey", largeFieldKey(position)},
                   {u"FCaption", caption},
                   {u"FColType", std::int32_t{sort == FieldSort::date ? 0
                                              : isNumber              ? 2
                                                                      : 1}},
                   {u"FFieldName", u"F" + number},
                   {u"FFieldNameExt", u"t_Large.F" + number},
                   {u"FNeedAs", false},
                   {u"FPage", std::int32_t{position % 2 == 0 ? 2 : 1}},
                   {u"FVisible", std::int32_t{1}},
                   {u"FParentKey", u""},
                   {u"FKeyWord", isAmount ? u"AMOUNT" : u""},
                   {u"FProperty", isAmount ? u"Amount" : u""},
                   {u"FSum", std::int32_t{isNumber ? 1 : 0}},
                   {u"FLookUpList", isList ? u"VALUELIST{1=现金,2=支票,3=汇款}" : u""},
                   {u"FCondition", sort == FieldSort::date ? u"D"
                                   : isNumber              ? u"N"
                                                           : u"T"},
                   {u"FCtlType", std::int32_t{1}},
                   {u"FEditLen", std::int32_t{80}}});
}

LargeTables makeTables(std::int32_t fields, std::int32_t classTypeId, const Counted& counted) {
    const Collection selectList = automation::makeCollection();
    const Dictionary tableInfo = automation::makeDictionary();
    for (std::int32_t position = 1; position <= fields; ++position) {
        const std::u16string key = largeFieldKey(position);
        selectList.add(counted(record({{u"Fkey", key},
                                       {u"FVisible", true},
                                       {u"FMustGet", std::int32_t{position % 50 == 0 ? 1 : 0}},
                                       {u"Decimal", std::int32_t{0}}})
                                   .object()));
        tableInfo.set(key, counted(fieldRecord(position).object()));
    }
    const Collection pages = automation::makeCollection();
    for (const char16_t* name : {u"单据头", u"单据体"})
        pages.add(counted(record({{u"FName", name}, {u"FEntryType", std::int32_t{0}}}).object()));
    const Dictionary classType = record({{u"FID", classTypeId}, {u"FName", u"大单据"}});
    return {classTypeId, counted(selectList.object()), counted(pages.object()), counted(tableInfo.object()),
            counted(classType.object())};
}

class LargeDataService final : public automation::Object {
  public:
    LargeDataService(std::shared_ptr<const std::vector<LargeTables>> tables, Counted counted)
        : tables_(std::move(tables)), counted_(std::move(counted)) {}

    Value invoke(std::u16string_view member, InvokeKind kind, Arguments arguments) override {
        if (automation::sameMember(member, u"ClassTypeID")) {
            if (kind == InvokeKind::let)
                serve(automation::toInt32(arguments[0].value()));
            return served().classTypeId;
        }
        if (automation::sameMember(member, u"getCondition"))
            return counted_(comparisonsOf(automation::toText(arguments[0].value()), counted_).object());
        if (automation::sameMember(member, u"TypeList"))
            return false;
        for (const auto& [name, table] :
             {std::pair(u"SelectList", &LargeTables::selectList), std::pair(u"ClassTypeEntry", &LargeTables::pages),
              std::pair(u"TableInfo", &LargeTables::tableInfo), std::pair(u"ClassType", &LargeTables::classType)})
            if (automation::sameMember(member, name))
                return served().*table;
        throw AutomationError::runtime(automation::errorNumber::memberNotFound);
    }
    std::u16string_view typeName() const override { return u"LargeDataService"; }

    void serve(std::int32_t classTypeId) {
        for (std::size_t i = 0; i < tables_->size(); ++i)
            if ((*tables_)[i].classTypeId == classTypeId)
                served_ = i;
    }

  private:
    const LargeTables& served() const { return (*tables_)[served_]; }

    std::shared_ptr<const std::vector<LargeTables>> tables_;
    std::size_t served_ = 0;
    Counted counted_;
};

class ClassInfo final : public automation::Object {
  public:
    explicit ClassInfo(Counted counted) : counted_(std::move(counted)) {}

    Value invoke(std::u16string_view member, InvokeKind, Arguments) override {
        if (!automation::sameMember(member, u"GetClassType"))
            throw AutomationError::runtime(automation::errorNumber::memberNotFound);
        const Collection list = automation::makeCollection();
        for (const std::int32_t id : {firstLargeClassType, firstLargeClassType + 1})
            list.add(counted_(record({{u"FID", id}, {u"FName", u"大单据" + automation::numberToText(id)}}).object()));
        return counted_(list.object());
    }

  private:
    Counted counted_;
};

/// The one record that the date query gives.
class TodayRecordset final : public automation::Object {
  public:
    explicit TodayRecordset(Counted counted) : counted_(std::move(counted)) {}

    Value invoke(std::u16string_view member, InvokeKind, Arguments) override {
        if (automation::sameMember(member, u"EOF"))
            return false;
        if (automation::sameMember(member, u"Value"))
            return automation::Date{largeHostToday};
        return counted_(shared_from_this()); // Fields(0)
    }

  private:
    Counted counted_;
};

/// Data access and user properties: one object answers for both.
class CommonServices final : public automation::Object {
  public:
    explicit CommonServices(Counted counted) : counted_(std::move(counted)) {}

    Value invoke(std::u16string_view member, InvokeKind, Arguments) override {
        if (automation::sameMember(member, u"getanyrecordset"))
            return counted_(std::make_shared<TodayRecordset>(counted_));
        if (automation::sameMember(member, u"GetProperty"))
            return u"UserID=1;UserName=bench;";
        throw AutomationError::runtime(automation::errorNumber::memberNotFound);
    }

  private:
    Counted counted_;
};

} // namespace

std::u16string largeFieldKey(std::int32_t position) {
    return u"FField" + automation::numberToText(position);
}

LargeHost::LargeHost(std::int32_t fields) : fields_(fields) {
    const Counted counted(count_);
    auto tables = std::make_shared<std::vector<LargeTables>>();
    for (const std::int32_t classTypeId : {firstLargeClassType, firstLargeClassType + 1})
        tables->push_back(makeTables(fields, classTypeId, counted));
    tables_ = std::move(tables);
}

ObjectRef LargeHost::create(std::u16string_view progId) {
    const Counted counted(count_);
    if (progId == u"ORVClassTpl.DataSrv")
        return automation::toObject(counted(std::make_shared<LargeDataService>(tables_, counted)));
    if (progId == u"ORVMClass.ClassInfo")
        return automation::toObject(counted(std::make_shared<ClassInfo>(counted)));
    if (progId == u"ORVEBCGLView.GLData" || progId == u"ORVPropsMgr.ShareProps")
        return automation::toObject(counted(std::make_shared<CommonServices>(counted)));
    throw AutomationError::runtime(automation::errorNumber::cannotCreateObject);
}

ObjectRef LargeHost::dataService(std::int32_t classTypeId) {
    const Counted counted(count_);
    const auto service = std::make_shared<LargeDataService>(tables_, counted);
    service->serve(classTypeId);
    return automation::toObject(counted(service));
}

} // namespace orv::bench
