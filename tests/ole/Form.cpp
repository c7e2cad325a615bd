#include "ole/Form.h"

#include "automation/Coercion.h"
#include "windows/com/Wrappers.h"

#include <gtest/gtest.h>

namespace orv::windows::test {

InnerWindow::InnerWindow()
    : hwnd_(CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 800, 600,
                            sharedForm().hwnd(), nullptr, nullptr, nullptr)) {}

void InnerWindow::close() noexcept {
    if (const HWND hwnd = std::exchange(hwnd_, nullptr))
        DestroyWindow(hwnd);
}

Form::Form(faults::FaultyHost& host) {
    automation::let(filter(), u"dctControl", host.erp().defaultSettings().object());
    control_.start();
    control_.verb(OLEIVERB_UIACTIVATE);
    EXPECT_TRUE(setUp(host));
    pumpMessages();
}

bool Form::setUp(faults::FaultyHost& host) const {
    automation::let(filter(), u"DataSrv", host.dataService(faults::receipts));
    return automation::toBoolean(automation::call(filter(), u"Initialize", u"1000201,1000202"));
}

automation::ObjectRef Form::filter() const {
    return wrap(control_.loaded.filter.get());
}

ComPtr<IAccessible> Form::activeCell() const {
    ComPtr<IAccessible> table, cell;
    AccessibleObjectFromWindow(grid(), static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), table.putVoid());
    UniqueVariant focus;
    if (table && table->get_accFocus(focus.put()) == S_OK)
        V_DISPATCH(&focus.ref())->QueryInterface(__uuidof(IAccessible), cell.putVoid());
    return cell;
}

ULONG Form::close(bool windowFirst) {
    if (windowFirst)
        window_.close();
    const ULONG left = control_.finish();
    window_.close();
    return left;
}

VARIANT itself() noexcept {
    VARIANT child;
    V_VT(&child) = VT_I4;
    V_I4(&child) = CHILDID_SELF;
    return child;
}

} // namespace orv::windows::test
