#include "HostTesting.h"
#include "automation/AutomationError.h"
#include "control/Filter.h"
#include "ui/Prompts.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>

// Any call that the control makes may run host code that calls the control again. Each test below plays one session
// over and over, and has the host strike at the first call, the second, and so on through all of them.
namespace orv::erp {
namespace {

using namespace testing;
using automation::AutomationError;
using automation::ObjectRef;
using automation::Value;
using control::Filter;

/// Strikes once, before the call of a given number; may fail that call, or spoil its answer.
struct Strike {
    int calls = 0;
    int at = 0;
    std::function<void()> action;
    std::optional<Value> spoiled;

    /// True when this call's answer is the spoiled one.
    bool called() {
        if (++calls != at)
            return false;
        if (action)
            action();
        return spoiled.has_value();
    }
};

/// An object of the host whose every member counts as a call; so do those of the objects that it hands out.
class Watched final : public automation::Object {
  public:
    Watched(ObjectRef inner, Strike& strike) : inner_(std::move(inner)), strike_(strike) {}

    Value invoke(std::u16string_view member, automation::InvokeKind kind, automation::Arguments args) override {
        if (strike_.called())
            return *strike_.spoiled;
        return watch(inner_->invoke(member, kind, args), strike_);
    }
    static Value watch(Value value, Strike& strike) {
        const auto* object = value.getIf<ObjectRef>();
        return object != nullptr && *object ? Value(ObjectRef(std::make_shared<Watched>(*object, strike))) : value;
    }

  private:
    ObjectRef inner_;
    Strike& strike_;
};

class WatchedFactory final : public automation::ObjectFactory {
  public:
    WatchedFactory(ErpHost& host, Strike& strike) : host_(host), strike_(strike) {}
    ObjectRef create(std::u16string_view progId) override { return watched(host_.create(progId)); }
    ObjectRef shared(std::u16string_view progId) override { return watched(host_.shared(progId)); }
    ObjectRef dataService() { return watched(host_.dataService(1000201)); }

  private:
    ObjectRef watched(ObjectRef object) {
        strike_.called();
        return std::make_shared<Watched>(std::move(object), strike_);
    }
    ErpHost& host_;
    Strike& strike_;
};

/// A message box pumps messages: while it stands, the host may do anything.
class WatchedPrompts final : public ui::Prompts {
  public:
    explicit WatchedPrompts(Strike& strike) : strike_(strike) {}
    ui::MessageAnswer message(const std::u16string&, std::int32_t, const std::u16string&) override {
        strike_.called();
        return ui::MessageAnswer::ok;
    }
    void log(const std::u16string&) override {}

  private:
    Strike& strike_;
};

constexpr const char* hostDescription = R"({
  "classTypes": [{
    "FID": 1000201, "FName": "收款单据",
    "pages": [{"FName": "单据头", "FEntryType": 0}, {"FName": "明细", "FEntryType": 1}, {"FName": "其他", "FEntryType": 1}],
    "fields": [
      {"FKey": "FNo", "FCaption": "单号", "FColType": 1, "FFieldName": "t.FNo", "FFieldNameExt": "t.FNo", "FPage": 1,
       "FCondition": "all", "FMustGet": 1, "FLookUpType": 1, "FLookUpClassID": 1, "FFNDFieldName": "FItemID",
       "FDSPFieldName": "FName", "FFilterPanel": "全部;NONE,空;@Field=''"},
      {"FKey": "FKind", "FCaption": "类型", "FColType": 2, "FFieldName": "t.FKind", "FFieldNameExt": "t.FKind",
       "FPage": 2, "FCondition": "list", "FLookUpList": "VALUELIST{1=甲,2=乙}", "FFilterPanel": "全部;NONE,甲;@Field=1"},
      {"FKey": "FFar", "FCaption": "远", "FColType": 1, "FFieldName": "t.FFar", "FFieldNameExt": "t.FFar",
       "FPage": 3, "FCondition": "all", "FFilterPanel": "全部;NONE"}
    ]
  }],
  "conditions": {
    "all": [
      {"FName": "等于", "FOperate": "=", "FInput": true, "FInputCtlType": "0"},
      {"FName": "今天", "FOperate": " BETWEEN ", "FValue": "TODAY", "FInput": false, "FInputCtlType": "0"}],
    "list": [{"FName": "等于", "FOperate": "=", "FInput": true, "FInputCtlType": "1", "FDataFieldIndex": "2",
              "FDataSourceType": 3}]
  }
})";

/// Runs a step of the session; a failure of the host's may end the step, nothing else may.
void attempt(const std::function<void()>& step) {
    try {
        step();
    } catch (const AutomationError&) { // what a host that spoils its own call gets
    }
}

class Reentry : public ::testing::Test {
  protected:
    static void SetUpTestSuite() { host_ = describe(hostDescription); }
    static void TearDownTestSuite() { host_.reset(); }

    /// What a host program and its user do with a control: every step that calls the host.
    static void playSession(Filter& filter, WatchedFactory& factory) {
        control::FilterControls& controls = filter.controls();
        ui::Spread& grid = controls.vsFilter;
        attempt([&] { filter.put_DataSrv(factory.dataService()); });
        attempt([&] { filter.Initialize(u"1000201"); });
        attempt([&] { grid.userChoose(2, 1, 1); });
        attempt([&] { grid.userType(4, 1, u"A"); });
        attempt([&] { grid.userChoose(2, 2, 2); });
        attempt([&] { grid.userChoose(4, 2, 1); });
        attempt([&] { grid.userChoose(2, 3, 1); });
        attempt([&] { grid.userChoose(3, 3, 1); });
        attempt([&] { controls.cmbFilter(1).userSelect(1); });
        attempt([&] { controls.cboTime.userSelect(2); });
        attempt([&] {
            std::u16string text;
            filter.GetFilterSql(text, true);
        });
        attempt([&] { controls.vsOrder.userChoose(1, 1, 1); });
        attempt([&] {
            std::u16string head, entry;
            filter.GetSortString(head, entry);
        });
        attempt([&] { filter.get_m_Header(); });
        attempt([&] { filter.get_UseKey(); });
        attempt([&] { filter.InitHideColumns(); });
        attempt([&] { controls.chkPage(2).userClick(); });
        attempt([&] { filter.EnableMostPage(); });
        attempt([&] { filter.RefreshProfile(filter.get_dctProFileEntry()); });
        attempt([&] {
            grid.setActiveCell(4, 1);
            host_->queueLookUp(u"C1");
            grid.userKeyDown(ui::key::f7, 0);
        });
        host_->clearLookUps();
        attempt([&] { // a wrong value, a line without a field, a column too wide: each is told in a message box
            grid.userChoose(2, 4, 2);
            std::u16string text;
            filter.GetFilterSql(text);
        });
        attempt([&] {
            grid.userChoose(1, 5, 1);
            grid.setActiveCell(2, 5);
            grid.userMoveTo(2, 1);
        });
        attempt([&] {
            controls.vsHideColumn.setActiveCell(4, 2);
            controls.vsHideColumn.userType(4, 2, u"151");
            controls.vsHideColumn.userMoveTo(1, 1);
        });
    }

    /// The control as good as new: one condition, its text.
    static std::string filterTextAfterwards(Filter& filter, WatchedFactory& factory) {
        filter.put_SetSelectPageList(u",1*,2,");
        filter.put_DataSrv(factory.dataService());
        if (!filter.Initialize())
            return "Initialize failed";
        ui::Spread& grid = filter.controls().vsFilter;
        for (int row = 1; row <= grid.maxRows(); ++row)
            grid.userChoose(2, row, 0);
        grid.userChoose(2, 1, 1);
        grid.userType(4, 1, u"B");
        control::FilterControls& controls = filter.controls();
        for (ui::ComboBox* option : {&controls.cboTime, &controls.cboCheck, &controls.cboPost})
            option->setListIndex(option->count() - 1);
        std::u16string text;
        filter.GetFilterSql(text, true);
        return utf8(text);
    }

    using Arm = std::function<void(Strike&, Filter&, WatchedFactory&)>;

    /// The host calls the control again; what goes wrong in that is its own business.
    static void strikeAtEveryCall(const std::function<void(Filter&, WatchedFactory&)>& action) {
        playArmed([&action](Strike& strike, Filter& filter, WatchedFactory& factory) {
            strike.action = [&] { attempt([&] { action(filter, factory); }); };
        });
    }

    static void playArmed(const Arm& arm) {
        int last = 1;
        for (int at = 1; at <= last; ++at) {
            Strike strike;
            WatchedPrompts prompts(strike);
            WatchedFactory factory(*host_, strike);
            Filter filter(factory, prompts);
            strike.at = strike.calls + at;
            const int before = strike.calls;
            arm(strike, filter, factory);
            playSession(filter, factory);
            if (at == 1)
                last = strike.calls - before;
            strike.at = 0;
            ASSERT_EQ(filterTextAfterwards(filter, factory), " ( t.FNo= 'B'  ) ") << "struck at call " << at;
        }
        EXPECT_GT(last, 100) << "the session hardly called the host";
    }

  private:
    static std::shared_ptr<ErpHost> host_;
};
std::shared_ptr<ErpHost> Reentry::host_;

TEST_F(Reentry, ClearMemInsideAnyCall) {
    strikeAtEveryCall([](Filter& filter, WatchedFactory&) { filter.ClearMem(); });
}

TEST_F(Reentry, AnotherDataServiceInsideAnyCall) {
    strikeAtEveryCall([](Filter& filter, WatchedFactory& factory) { filter.put_DataSrv(factory.dataService()); });
}

TEST_F(Reentry, InitializeInsideAnyCall) {
    strikeAtEveryCall([](Filter& filter, WatchedFactory&) { filter.Initialize(); });
}

TEST_F(Reentry, ResultsInsideAnyCall) {
    strikeAtEveryCall([](Filter& filter, WatchedFactory&) {
        std::u16string text;
        filter.GetFilterSql(text, true);
        filter.get_m_Header();
        filter.InitHideColumns();
    });
}

TEST_F(Reentry, AFailureOfAnyCall) {
    playArmed([](Strike& strike, Filter&, WatchedFactory&) {
        strike.action = [] { throw AutomationError(4711, u"host", u"broken"); };
    });
}

TEST_F(Reentry, AnAnswerOfTheWrongKindToAnyCall) {
    const Value answers[] = {automation::Null{}, u"x", ObjectRef()};
    for (const Value& answer : answers) {
        SCOPED_TRACE(answer.storage().index());
        playArmed([&answer](Strike& strike, Filter&, WatchedFactory&) { strike.spoiled = answer; });
    }
}

} // namespace
} // namespace orv::erp
