// Whatever a user and a host do, in any order: the control keeps its invariants, answers the same when asked twice,
// lets no exception but its own escape, and works afterwards.
#include "ControlChecks.h"
#include "Input.h"
#include "automation/AutomationError.h"

#include <iterator>

using namespace orv;
using automation::AutomationError;
using control::Filter;
using control::FilterControls;

namespace {

class Session {
  public:
    Session(fuzz::Input& input, fuzz::SmallHost& host, Filter& filter)
        : input_(input), host_(host), filter_(filter), controls_(filter.controls()) {}

    /// One action that the input names.
    void step() {
        constexpr void (Session::*actions[])() = {
            &Session::chooseCondition, &Session::typeValue,   &Session::move,
            &Session::rowButton,       &Session::sort,        &Session::columns,
            &Session::pages,           &Session::options,     &Session::toolbar,
            &Session::schemeList,      &Session::lookUp,      &Session::classType,
            &Session::hostSettings,    &Session::hostFailure, &Session::hostMembers,
            &Session::lifecycle,
        };
        const auto action = actions[input_.below(static_cast<int>(std::size(actions)))];
        try {
            (this->*action)();
        } catch (const AutomationError&) { // what a host or a test that drives the models gets
        }
    }

  private:
    int row() { return 1 + input_.below(32); }
    ui::Spread& grid() {
        ui::Spread* const grids[] = {&controls_.vsFilter, &controls_.vsOrder, &controls_.vsHideColumn};
        return *grids[input_.below(3)];
    }

    void chooseCondition() {
        const int column = 1 + input_.below(8);
        const int line = row();
        controls_.vsFilter.userChoose(column, line, input_.below(12) - 1);
    }
    void typeValue() {
        ui::Spread& target = grid();
        const int column = 1 + input_.below(8);
        const int line = row();
        target.userType(column, line, input_.line());
    }
    void move() {
        ui::Spread& target = grid();
        const int column = input_.below(9);
        const int line = input_.below(32);
        input_.flag() ? target.userClick(column, line) : void(target.userMoveTo(column, line));
    }
    void rowButton() {
        ui::Button* const buttons[] = {&controls_.cmdInsert, &controls_.cmdDel, &controls_.cmdDelAll};
        buttons[input_.below(3)]->press();
    }
    void sort() {
        const int line = row();
        controls_.vsOrder.userChoose(1, line, input_.below(10) - 1);
        if (input_.flag())
            controls_.vsOrder.userToggle(2 + input_.below(2), line);
    }
    void columns() {
        const int line = row();
        controls_.vsHideColumn.userToggle(3, line);
        controls_.cmdHide(input_.below(6)).press();
    }
    void pages() {
        const int index = input_.below(5);
        ui::CheckBox& box = controls_.chkPage(index);
        const bool disturbed = host_.failIn > 0 || !filter_.get_DataSrv();
        box.userClick();
        // The second and the third page of the host exclude each other; a list that came from outside may hold both.
        if (!disturbed && box.enabled() && box.isChecked() && (index == 1 || index == 2))
            fuzz::require(!controls_.chkPage(3 - index).isChecked(), "at most one page of the exclusive kind");
        controls_.vsPage.setValue(input_.below(256) * 300);
    }
    void options() {
        ui::ComboBox* const boxes[] = {&controls_.cboTime, &controls_.cboCheck, &controls_.cboPost};
        boxes[input_.below(3)]->userSelect(input_.below(5) - 1);
        controls_.cmbFilter(1 + input_.below(3)).userSelect(input_.below(4) - 1);
        controls_.chkIsShowAll.userClick();
    }
    void toolbar() {
        constexpr const char16_t* keys[] = {u"TLBSAVE", u"TLBDEL", u"TLBCLEAR", u"TLBVIEW"};
        const char16_t* key = keys[input_.below(4)];
        host_.answersYes = input_.flag();
        host_.typedSchemeName = input_.line();
        controls_.tlbProject.userClick(key);
    }
    void schemeList() {
        controls_.lvwProject.userSelect(1 + input_.below(6));
        if (input_.flag())
            filter_.SaveScheme();
        filter_.SaveLastUseScheme();
    }
    void lookUp() {
        const int line = row();
        host_.lookUpAnswer = input_.line();
        controls_.vsFilter.setActiveCell(4, line);
        controls_.vsFilter.userKeyDown(ui::key::f7, 0);
    }
    void classType() { controls_.cboClassType.userSelect(input_.below(4) - 1); }
    void hostSettings() {
        filter_.put_ShowScheme(input_.flag());
        filter_.put_ShowFilterStyle(input_.below(3));
        filter_.SetPagetoTop(input_.below(5));
        filter_.put_SetSelectPageList(input_.line());
        filter_.resize(input_.below(256) * 8, input_.below(256) * 8);
    }
    void hostFailure() { host_.failIn = 1 + input_.below(200); }
    void hostMembers() {
        switch (input_.below(6)) {
        case 0:
            entry_ = filter_.get_dctProFileEntry();
            break;
        case 1:
            if (entry_)
                filter_.RefreshProfile(entry_);
            break;
        case 2:
            filter_.InitHideColumns();
            break;
        case 3:
            filter_.get_m_Header();
            break;
        case 4:
            filter_.get_dctProFile();
            break;
        default:
            filter_.get_UseKey();
            break;
        }
    }
    void lifecycle() {
        switch (input_.below(4)) {
        case 0:
            filter_.ClearMem();
            break;
        case 1:
            filter_.put_DataSrv(host_.dataService(1000201));
            break;
        case 2:
            filter_.Initialize();
            break;
        default:
            filter_.Initialize(u"1000201,34");
            break;
        }
    }

    fuzz::Input& input_;
    fuzz::SmallHost& host_;
    Filter& filter_;
    FilterControls& controls_;
    automation::Dictionary entry_;
};

constexpr int mostActions = 60;
/// Looking at the whole control takes longer than an action.
constexpr int checkedEvery = 6;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    fuzz::SmallHost host;
    {
        Filter filter(host, host);
        filter.put_ShowScheme(true);
        filter.put_DataSrv(host.dataService(1000201));
        fuzz::require(filter.Initialize(u"1000201,34"), "the control starts");
        Session session(input, host, filter);
        for (int i = 0; i < mostActions && !input.atEnd(); ++i) {
            session.step();
            if (i % checkedEvery == 0)
                fuzz::checkInvariants(filter);
        }
        fuzz::checkInvariants(filter);
        host.failIn = 0;
        fuzz::checkResults(filter);
        fuzz::checkUsable(filter, host);
    }
    fuzz::require(fuzz::SmallHost::liveObjects() == 0, "every object of the host is let go");
    return 0;
}
