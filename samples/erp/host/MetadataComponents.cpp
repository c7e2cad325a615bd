#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/Records.h"
#include "erp/host/ComponentTable.h"
#include "erp/host/DataService.h"
#include "support/Letters.h"
#include "support/Pieces.h"

#include <algorithm>
#include <vector>

namespace orv::erp {

using automation::Arguments;
using automation::AutomationError;
using automation::Collection;
using automation::ObjectRef;
using automation::Value;

namespace {

[[noreturn]] void failFilter(std::u16string_view filter) {
    throw AutomationError(static_cast<std::int32_t>(0x80040E14), u"ORVMClass.ClassInfo",
                          u"筛选条件有语法错误: " + std::u16string(filter));
}

/// The identifiers of "FID in (1,2)", as a server reads them.
std::vector<std::int32_t> idsOf(std::u16string_view filter) {
    constexpr std::u16string_view head = u"FID IN (";
    const std::u16string_view text = support::Trim(filter);
    if (text.size() < head.size() || !support::equalIgnoringCase(text.substr(0, head.size()), head) ||
        !text.ends_with(u')'))
        failFilter(filter);
    std::vector<std::int32_t> ids;
    support::PieceReader pieces(text.substr(head.size(), text.size() - head.size() - 1), u",");
    std::u16string_view piece;
    while (pieces.next(piece)) {
        const std::u16string_view number = support::Trim(piece);
        if (number.empty() || number.find_first_not_of(u"-0123456789") != std::u16string_view::npos ||
            !automation::isNumeric(number))
            failFilter(filter);
        ids.push_back(automation::toInt32(Value(number)));
    }
    if (ids.empty())
        failFilter(filter);
    return ids;
}

class ClassInfo final : public Component {
  public:
    using Component::Component;
    std::span<const Member> members() const override {
        static constexpr Member table[] = {
            method<&ClassInfo::getClassType>(u"GetClassType", 2),
            method<&ClassInfo::getData>(u"GetData", 2),
        };
        return table;
    }

  private:
    /// (user properties, "FID in (...)"): the class types in the host's own order, as copies.
    Value getClassType(Arguments arguments) {
        const auto ids = idsOf(automation::toText(arguments[1].value()));
        const Collection list = automation::makeCollection();
        for (const auto& type : state().description.classTypes())
            if (std::ranges::find(ids, type.id) != ids.end())
                list.add(type.record.cloneAll().object());
        return list.object();
    }

    /// (sql, user properties): a recordset.
    Value getData(Arguments arguments) {
        return queryRecordset(state().database, automation::toText(arguments[0].value()));
    }
};

constexpr ComponentClass metadataClasses[] = {
    {u"ORVMClass.ClassInfo", &makeComponent<ClassInfo>},
    {u"ORVClassTpl.DataSrv", &makeComponent<DataService>},
};

} // namespace

std::span<const ComponentClass> metadataComponents() {
    return metadataClasses;
}

} // namespace orv::erp
