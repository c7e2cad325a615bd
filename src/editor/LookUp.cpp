#include "editor/LookUp.h"

#include "automation/AutomationError.h"
#include "editor/RecordText.h"

#include <algorithm>
#include <array>

namespace orv::editor {

using automation::Argument;
using automation::Dictionary;
using automation::ObjectRef;
using automation::Recordset;
using automation::Value;

namespace {

/// Kinds of look-up (`FLookUpType`).
namespace kind {
constexpr std::int32_t none = 0;
constexpr std::int32_t baseData = 1;
constexpr std::int32_t auxiliaryData = 2;
constexpr std::int32_t bill = 3;
constexpr std::int32_t account = 4;
constexpr std::int32_t baseDataToo = 5;
constexpr std::int32_t item = 10;
} // namespace kind

/// `RetType` of fields that take the stored key.
constexpr std::int32_t returnsKey = 2;
/// Account groups from here on are off the balance sheet.
constexpr std::int32_t firstOffBalanceGroup = 700;
/// How the bill dialog shows itself, and the account dialog's control system: the services' own defaults.
constexpr std::int32_t usualShowType = 0;

bool isItemClass(std::int32_t classId) {
    constexpr std::array classes{1, 2, 3, 4, 5, 8, 9, 10, 14};
    return classId >= 1001 || std::ranges::find(classes, classId) != classes.end();
}

std::optional<LookUpChoice> chosen(const ObjectRef& record, std::u16string_view keyColumn,
                                   std::u16string_view displayColumn) {
    if (!record)
        return std::nullopt;
    const auto column = [&record](std::u16string_view name) {
        const Value value = automation::get(record, u"Properties", name);
        return value.isNull() ? std::u16string() : automation::toText(value);
    };
    LookUpChoice choice;
    choice.key = column(keyColumn);
    choice.display = column(displayColumn);
    return choice;
}

ObjectRef returnObject(const ObjectRef& service) {
    return automation::toObjectOrNothing(automation::get(service, u"ReturnObject"));
}

} // namespace

bool opensDialog(double lookUpKind) {
    constexpr std::array kinds{kind::baseData, kind::auxiliaryData, kind::bill,
                               kind::account,  kind::baseDataToo,   kind::item};
    return std::ranges::find(kinds, lookUpKind) != kinds.end();
}

std::optional<LookUpChoice> LookUp::choose(const metadata::FieldRecord& source) {
    const Dictionary tableInfo = host_.currentTableInfo();
    if (!tableInfo)
        return std::nullopt;
    const Dictionary field =
        Dictionary(automation::toObject(tableInfo.get(source.text(metadata::fieldKey::key)))).cloneAll();
    field.set(u"FFilterOLD", field.getValue(u"FFilter", u""));
    field.set(u"FFilter", u"");
    if (entryNumber(field, u"FLookUpCLassID") != 0)
        field.set(u"RetType", source.number(u"RetType"));
    if (entryNumber(field, u"FLookUpType") != kind::none)
        return chooseByKind(field);

    const ObjectRef service = host_.currentDataService();
    const Recordset base(automation::toObjectOrNothing(automation::get(service, u"rsAllBase")));
    const Dictionary resolved = resolveThroughPages(field, tableInfo, base);
    if (!resolved)
        return std::nullopt;
    resolved.set(u"FFilter", u"");
    return chooseByKind(resolved);
}

std::optional<LookUpChoice> LookUp::chooseByKind(const Dictionary& field) {
    const std::int32_t lookUpKind = entryNumber(field, u"FLookUpType");
    if (!opensDialog(lookUpKind))
        return std::nullopt;
    field.set(u"FFilter", field.getValue(u"FFilterOLD", u""));
    const std::u16string filter = itemFilter(field);

    std::optional<LookUpChoice> choice;
    switch (lookUpKind) {
    case kind::baseData:
    case kind::baseDataToo:
        field.set(u"FFilter", filter);
        choice = baseData(field, entryNumber(field, u"FLookUpClassID"));
        break;
    case kind::auxiliaryData:
        choice = auxiliaryData(field);
        break;
    case kind::bill:
        choice = bill(field);
        break;
    case kind::account:
        choice = account(field);
        break;
    case kind::item:
        if (const auto classId = itemClass(field)) {
            field.set(u"ItemClassID", *classId);
            choice = baseData(field, *classId);
        }
        break;
    default:
        break;
    }
    if (choice && entryNumber(field, u"RetType") == returnsKey)
        choice->display = choice->key;
    return choice;
}

std::u16string LookUp::itemFilter(const Dictionary& field) {
    const ObjectRef action = host_.components().create(u"ORVClassTpl.clsdoAction");
    automation::let(action, u"m_dctTableInfo", host_.currentTableInfo().object());
    automation::let(action, u"DataSrv", host_.currentDataService());
    automation::let(action, u"Parent", host_.controlObject());
    automation::let(action, u"m_CurRow", std::int32_t{-1});
    automation::let(action, u"BillInterface", ObjectRef());
    Value filter = std::u16string();
    automation::call(action, u"GetItemFilter", Argument::byReference(filter), field.object());
    return filter.isNull() ? std::u16string() : automation::toText(filter);
}

std::optional<LookUpChoice> LookUp::baseData(const Dictionary& field, std::int32_t classId) {
    const std::u16string filter = entryText(field, u"FFilter");
    const std::u16string filterGroup = entryText(field, u"FFilterGroup");
    constexpr std::int32_t unitClass = 7;
    constexpr std::int32_t currencyClass = 12;
    constexpr std::int32_t accountClass = 13;
    constexpr std::int32_t settlementClass = 130;

    if (classId == unitClass && automation::Val(filterGroup) == 0) {
        host_.messages().warn(u"请录入计量单位关联的%1。", host_.texts().TranslateText(host_.itemNaming()));
        return std::nullopt;
    }
    const ObjectRef view = host_.components().shared(u"ORVEBCGLView.GLView");
    if (isItemClass(classId)) {
        const Dictionary options = automation::newRecord(host_.components());
        options.set(u"BeShortNumber", false);
        options.set(u"GetDataType", std::int16_t{0});
        if (!filter.empty())
            options.set(u"Search", filter);
        options.set(u"MultiSlt", std::int32_t{filterGroup.empty() ? 0 : 1});
        options.set(u"Refresh", std::int16_t{1});
        automation::call(view, u"ItemLookUp", classId, filter, filterGroup, options.object());
    } else if (classId == unitClass) {
        automation::call(view, u"UnitLookup", filter, filterGroup);
    } else if (classId == settlementClass) {
        automation::call(view, u"SettTypeLookup", filter);
    } else if (classId == currencyClass) {
        automation::call(view, u"CurrencyLookup", filter);
    } else if (classId == accountClass) {
        automation::call(view, u"AccountLookup", filter);
    } else if (classId >= 20 && classId <= 999) {
        automation::call(view, u"SubMesLookup", classId, filter);
    } else {
        return std::nullopt;
    }
    return chosen(returnObject(view), entryText(field, u"FFNDFieldName"), entryText(field, u"FDSPFieldName"));
}

std::optional<LookUpChoice> LookUp::auxiliaryData(const Dictionary& field) {
    const ObjectRef view = host_.components().shared(u"ORVEBCGLView.GLView");
    automation::call(view, u"SubMesLookup", entryNumber(field, u"FLookUpClassID"), entryText(field, u"FFilter"));
    if (!automation::toBoolean(automation::get(view, u"ReturnOK")))
        return std::nullopt;
    return chosen(returnObject(view), u"FNumber", entryText(field, u"FDSPFieldName"));
}

std::optional<LookUpChoice> LookUp::bill(const Dictionary& field) {
    const ObjectRef dialog = host_.components().create(u"ORVClassLookUp.SingleBillLookUp");
    automation::let(dialog, u"ClassTypeID", entryNumber(field, u"FLookUpClassID"));
    automation::let(dialog, u"Filter", entryText(field, u"FFilter"));
    automation::let(dialog, u"ShowType", usualShowType);
    automation::call(dialog, u"Show");
    const ObjectRef record = automation::toObjectOrNothing(automation::get(dialog, u"BillTableDataChoose"));
    return chosen(record, u"FNumber", entryText(field, u"FDSPFieldName"));
}

std::optional<LookUpChoice> LookUp::account(const Dictionary& field) {
    const ObjectRef view = host_.components().shared(u"ORVEBCGLView.GLView");
    const Dictionary options = automation::newRecord(host_.components());
    options.set(u"DataAccess", true);
    options.set(u"FControlSystem", std::int32_t{0});
    options.set(u"ControlKey", u"");
    automation::call(view, u"AccountLookup", options.object(), entryText(field, u"FFilterGroup"),
                     entryText(field, u"FFilter"));
    const ObjectRef record = returnObject(view);
    if (!record)
        return std::nullopt;
    const Value group = automation::get(record, u"Properties", u"FGroupID");
    if (!group.isNull() && automation::toNumber(group) >= firstOffBalanceGroup) {
        host_.messages().warn(u"不能选择表外科目 ");
        return std::nullopt;
    }
    return chosen(record, u"FNumber", entryText(field, u"FDSPFieldName"));
}

std::optional<std::int32_t> LookUp::itemClass(const Dictionary& field) {
    // The field's FProperty names where its item class stands: a condition of the grid, or a table information entry.
    const std::u16string property = entryText(field, u"FProperty");
    const std::u16string fieldKey = entryText(field, u"FKey");
    std::int32_t classId = 0;
    std::u16string settingName;
    if (const auto value = host_.conditionValue(property))
        classId = automation::roundToInt32(automation::Val(*value));
    const Dictionary tableInfo = host_.currentTableInfo();
    if (classId == 0 && !property.empty() && tableInfo.exists(property)) {
        const Value entry = tableInfo.get(property);
        if (entry.isObject()) {
            const Dictionary setting(automation::toObject(entry));
            const Value number = setting.getValue(fieldKey, std::int32_t{0});
            classId = number.isNull() ? 0 : automation::roundToInt32(automation::Val(automation::toText(number)));
            settingName = entryText(setting, u"Lookup");
        }
    }
    if (classId != 0)
        return classId;
    const std::u16string caption = entryText(field, u"FCaption");
    if (settingName.empty())
        host_.messages().warn(u"%1对应的核算项目类别不确定，不支持F7功能。", caption);
    else
        host_.messages().warn(u"%1对应的核算项目类别不确定，请先设置%2！", caption, settingName);
    return std::nullopt;
}

} // namespace orv::editor
