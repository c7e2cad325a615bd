#include "automation/Coercion.h"
#include "erp/host/ComponentTable.h"
#include "support/Letters.h"

namespace orv::erp {

using automation::Arguments;
using automation::ObjectRef;
using automation::Value;

namespace {

class AppConnection final : public Component {
  public:
    using Component::Component;
    std::span<const Member> members() const override {
        static constexpr Member table[] = {method<&AppConnection::execute>(u"Execute", 1)};
        return table;
    }

  private:
    /// A recordset for a SELECT; any other statement is run and gives nothing.
    Value execute(Arguments arguments) {
        constexpr std::u16string_view select = u"SELECT";
        const std::u16string sql = automation::toText(arguments[0].value());
        if (support::equalIgnoringCase(support::Trim(sql).substr(0, select.size()), select))
            return queryRecordset(state().database, sql);
        state().database.execute(sql);
        return ObjectRef();
    }
};

class GLData final : public Component {
  public:
    using Component::Component;
    std::span<const Member> members() const override {
        static constexpr Member table[] = {method<&GLData::getAnyRecordset>(u"getanyrecordset", 1)};
        return table;
    }

  private:
    Value getAnyRecordset(Arguments arguments) {
        return queryRecordset(state().database, automation::toText(arguments[0].value()));
    }
};

constexpr ComponentClass dataClasses[] = {
    {u"ORVConnection.AppConnection", &makeComponent<AppConnection>},
    {u"ORVEBCGLView.GLData", &makeComponent<GLData>},
};

} // namespace

std::span<const ComponentClass> dataComponents() {
    return dataClasses;
}

} // namespace orv::erp
