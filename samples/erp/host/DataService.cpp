#include "erp/host/DataService.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/Records.h"
#include "erp/host/ClassTypeTables.h"
#include "erp/host/RecordsetObject.h"

namespace orv::erp {

using automation::Arguments;
using automation::AutomationError;
using automation::Collection;
using automation::Dictionary;
using automation::Value;

std::span<const Member> DataService::members() const {
    static constexpr Member table[] = {
        property<&DataService::getClassTypeId, &DataService::letClassTypeId>(u"ClassTypeID"),
        readOnly<&DataService::selectList>(u"SelectList"),
        readOnly<&DataService::classTypeEntry>(u"ClassTypeEntry"),
        readOnly<&DataService::tableInfo>(u"TableInfo"),
        readOnly<&DataService::classType>(u"ClassType"),
        readOnly<&DataService::typeList>(u"TypeList"),
        readOnly<&DataService::rsAllBase>(u"rsAllBase"),
        method<&DataService::getCondition>(u"getCondition", 1),
        method<&DataService::getData>(u"GetData", 1),
    };
    return table;
}

void DataService::serve(std::int32_t classTypeId) {
    const auto* type = state().description.findClassType(classTypeId);
    if (type == nullptr)
        throw AutomationError(automation::errorNumber::invalidCall, u"ORVClassTpl.DataSrv",
                              u"没有单据类型 " + automation::toText(classTypeId));
    type_ = type;
    selectList_ = {};
    classTypeEntry_ = {};
    tableInfo_ = {};
    classType_ = {};
    rsAllBase_ = {};
    state().currentClassType = classTypeId;
}

const ClassTypeDescription& DataService::type() const {
    if (type_ == nullptr)
        throw AutomationError(automation::errorNumber::invalidCall, u"ORVClassTpl.DataSrv", u"尚未指定单据类型");
    return *type_;
}

Value DataService::getClassTypeId(Arguments) {
    return type_ == nullptr ? std::int32_t{0} : type_->id;
}

void DataService::letClassTypeId(Arguments arguments) {
    serve(automation::toInt32(arguments[0].value()));
}

Value DataService::selectList(Arguments) {
    if (!selectList_)
        selectList_ = makeSelectList(type(), state().description.fieldDefaults());
    return selectList_.object();
}

Value DataService::classTypeEntry(Arguments) {
    if (!classTypeEntry_)
        classTypeEntry_ = makeClassTypeEntry(type());
    return classTypeEntry_.object();
}

Value DataService::tableInfo(Arguments) {
    if (!tableInfo_)
        tableInfo_ = makeTableInfo(type(), state().description.fieldDefaults());
    return tableInfo_.object();
}

Value DataService::classType(Arguments) {
    if (!classType_)
        classType_ = type().record.cloneAll();
    return classType_.object();
}

Value DataService::typeList(Arguments) {
    return type().typeList;
}

Value DataService::rsAllBase(Arguments) {
    const ResultSet& described = state().description.baseFields();
    if (!rsAllBase_)
        rsAllBase_ = described.columns.empty() ? queryRecordset(state().database, u"SELECT * FROM t_BaseDataField")
                                               : RecordsetObject::make(described);
    return rsAllBase_;
}

// A set that the host does not have offers no comparisons.
Value DataService::getCondition(Arguments arguments) {
    const Value& argument = arguments[0].value();
    const std::u16string set = argument.isNull() ? std::u16string() : automation::toText(argument);
    const auto [known, isNew] = conditions_.try_emplace(set);
    if (isNew) {
        known->second = automation::makeCollection();
        if (const auto* entries = state().description.findConditions(set))
            for (const Dictionary& entry : *entries)
                known->second.add(entry.cloneAll().object());
    }
    return known->second.object();
}

Value DataService::getData(Arguments arguments) {
    return queryRecordset(state().database, automation::toText(arguments[0].value()));
}

} // namespace orv::erp
