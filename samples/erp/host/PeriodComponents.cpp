#include "automation/Coercion.h"
#include "erp/host/ComponentTable.h"

namespace orv::erp {

using automation::Arguments;
using automation::Value;

namespace {

constexpr std::int32_t voucherList = 1000801;
constexpr std::int32_t voucherEntryList = 1000802;

bool isLedger(std::int32_t classTypeId) {
    return classTypeId == voucherList || classTypeId == voucherEntryList;
}

/// FKind of t_Period.
enum class PeriodKind : std::int32_t { business = 0, ledger = 1 };

class ListServer final : public Component {
  public:
    using Component::Component;
    std::span<const Member> members() const override {
        static constexpr Member table[] = {
            method<&ListServer::getCurPeriod>(u"GetCurPeriod", 5),
            method<&ListServer::getGlCurPeriod>(u"GetGLCurPeriod", 5),
        };
        return table;
    }

  private:
    /// (user properties, year, period, start, end): the last four are answers.
    Value getCurPeriod(Arguments arguments) { return answer(PeriodKind::business, arguments); }
    Value getGlCurPeriod(Arguments arguments) { return answer(PeriodKind::ledger, arguments); }

    Value answer(PeriodKind kind, Arguments arguments) {
        if (const PeriodAnswer* described = describedPeriod(kind)) {
            if (described->year)
                arguments[1].assign(*described->year);
            if (described->period)
                arguments[2].assign(*described->period);
            if (described->start)
                arguments[3].assign(*described->start);
            if (described->end)
                arguments[4].assign(*described->end);
            return described->result;
        }
        const Value parameters[] = {static_cast<std::int32_t>(kind)};
        const ResultSet open = state().database.query(
            u"SELECT FYear, FPeriod, FStartDate, FEndDate FROM t_Period WHERE FCurrent=1 AND FKind=?", parameters);
        if (open.rows.empty())
            return false;
        for (std::size_t column = 0; column < open.columns.size(); ++column)
            arguments[column + 1].assign(open.rows[0][column]);
        return true;
    }

    /// The answer that the description gives: the current class type's if it is of that kind, else the first one's.
    const PeriodAnswer* describedPeriod(PeriodKind kind) const {
        const auto fits = [kind](const ClassTypeDescription& type) {
            return type.period && isLedger(type.id) == (kind == PeriodKind::ledger);
        };
        if (const auto* current = state().currentClass(); current != nullptr && fits(*current))
            return &*current->period;
        for (const auto& type : state().description.classTypes())
            if (fits(type))
                return &*type.period;
        return nullptr;
    }
};

class WageSettings final : public Component {
  public:
    using Component::Component;
    std::span<const Member> members() const override {
        static constexpr Member table[] = {method<&WageSettings::getClsIdInfo>(u"GetClsIDInfo", 0, 1)};
        return table;
    }

  private:
    /// The wage class of the current wage document; 0 when the class type has none.
    Value getClsIdInfo(Arguments) {
        const auto* current = state().currentClass();
        return current == nullptr ? std::int32_t{0} : current->clsId.value_or(0);
    }
};

constexpr ComponentClass periodClasses[] = {
    {u"ORVListServer.clsListServer", &makeComponent<ListServer>},
    {u"ORVPASetting.PAview", &makeComponent<WageSettings>},
};

} // namespace

std::span<const ComponentClass> periodComponents() {
    return periodClasses;
}

} // namespace orv::erp
