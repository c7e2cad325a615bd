#include "automation/Coercion.h"
#include "ole/Container.h"
#include "ole/GuiObjects.h"
#include "ole/SampleComponents.h"
#include "ole/User.h"
#include "windows/com/ComObjectFactory.h"
#include "windows/com/Wrappers.h"

#include <gtest/gtest.h>

#include <oleacc.h>

// A control that has worked on a host's data leaves nothing behind.
namespace orv::windows::test {

namespace {

using automation::ObjectRef;
using automation::Value;

/// Puts a condition into the first line: list, edit box and all.
void enterCondition(HWND grid) {
    chooseField(grid, u"单据编");
    type(u"SK-1");
}

void readWithAssistant(HWND grid) {
    ComPtr<IAccessible> table;
    ASSERT_EQ(
        AccessibleObjectFromWindow(grid, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), table.putVoid()),
        S_OK);
    VARIANT focus;
    VariantInit(&focus);
    table->get_accFocus(&focus);
    VariantClear(&focus);
}

std::u16string liveOnce(HWND form, const ObjectRef& host) {
    Embedded control(form);
    std::u16string sql;
    {
        const ObjectRef filter = wrap(control.loaded.filter.get());
        automation::let(filter, u"dctControl", automation::call(host, u"Settings"));
        automation::let(filter, u"ShowScheme", true);
        automation::let(filter, u"DataSrv", automation::call(host, u"DataService", std::int32_t{1000201}));
        control.start();
        control.verb(OLEIVERB_UIACTIVATE);
        EXPECT_TRUE(automation::toBoolean(automation::call(filter, u"Initialize")));
        pumpMessages();
        const HWND grid = childWithText(control.window(), L"条件");
        EXPECT_NE(grid, nullptr);
        enterCondition(grid);
        readWithAssistant(grid);
        pumpMessages();
        UniqueBstr text;
        VARIANT_BOOL done = VARIANT_FALSE;
        EXPECT_EQ(control.loaded.filter->GetFilterSql(text.put(), VARIANT_FALSE, &done), S_OK);
        sql = text.view();
        automation::call(filter, u"ClearMem");
    }
    SetFocus(form);
    EXPECT_EQ(control.finish(), 0u);
    pumpMessages();
    return sql;
}

TEST(Leaks, TwoHundredWorkingLivesLeaveNothingBehind) {
    const HWND form = sharedForm().hwnd();
    const RegisteredHost registered;
    const Dll kept(u"ORVFilter.ocx"); // what the module makes once is not made again
    ComObjectFactory factory;
    const ObjectRef host = factory.create(u"OrvSample.Host");
    for (int warmUp = 0; warmUp < 3; ++warmUp)
        EXPECT_NE(liveOnce(form, host).find(u"'SK-1'"), std::u16string::npos) << "what is typed counts";
    const std::size_t windows = windowCount();
    const std::size_t objects = gdiCount();
    for (int cycle = 0; cycle < 200 && !HasFailure(); ++cycle)
        liveOnce(form, host);
    EXPECT_EQ(windowCount(), windows);
    EXPECT_EQ(gdiCount(), objects);
    EXPECT_TRUE(kept.canUnload()) << "objects of the control are alive";
}

} // namespace

} // namespace orv::windows::test
