#include "erp/windows/lookup/LookUpWindow.h"
#include "erp/windows/ui/WindowNames.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <string>
#include <thread>

// The look-up window under a user's keys: a second thread presses them while the dialog runs.
namespace orv::erp {
namespace {

using Positions = std::vector<std::size_t>;

constexpr int pollMs = 20;
constexpr int mostPolls = 500;

/// Waits until something is so; false when it never is.
bool becomes(const std::function<bool()>& condition) {
    for (int i = 0; i < mostPolls; ++i) {
        if (condition())
            return true;
        Sleep(pollMs);
    }
    return false;
}

void press(WORD key) {
    for (const DWORD up : {DWORD{0}, DWORD{KEYEVENTF_KEYUP}}) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
        input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
        input.ki.dwFlags = up;
        SendInput(1, &input, sizeof input);
        Sleep(pollMs);
    }
}

/// The user at an open dialog.
class User {
  public:
    explicit User(HWND dialog) : dialog_(dialog) {}

    HWND list() const { return GetDlgItem(dialog_, window::records); }
    int rows() const { return static_cast<int>(SendMessageW(list(), LVM_GETITEMCOUNT, 0, 0)); }
    int selected() const {
        return static_cast<int>(
            SendMessageW(list(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), MAKELPARAM(LVNI_SELECTED, 0)));
    }
    void type(const wchar_t* letters) const {
        for (; *letters; ++letters)
            PostMessageW(GetDlgItem(dialog_, window::search), WM_CHAR, *letters, 1);
    }
    bool sees(int rows) const {
        return becomes([&] { return this->rows() == rows; });
    }
    bool stands(int row) const {
        return becomes([&] { return selected() == row; });
    }
    std::wstring title() const {
        wchar_t text[80] = L"";
        GetWindowTextW(dialog_, text, static_cast<int>(std::size(text)));
        return text;
    }
    std::wstring count() const {
        wchar_t text[80] = L"";
        GetDlgItemTextW(dialog_, window::found, text, static_cast<int>(std::size(text)));
        return text;
    }
    void cancel() const { PostMessageW(dialog_, WM_COMMAND, IDCANCEL, 0); }
    HWND dialog() const { return dialog_; }

  private:
    HWND dialog_;
};

LookUpOffer customers(bool isMultiple = false) {
    LookUpOffer offer;
    offer.title = u"客户";
    offer.language = u"CHS";
    offer.columns = {{u"FNumber", u"代码"}, {u"FName", u"名称"}};
    offer.rows = {{u"C001", u"东方贸易"}, {u"C002", u"Acme"}, {u"C003", u"西部贸易"}, {u"D001", u"北方"}};
    offer.isMultiple = isMultiple;
    return offer;
}

/// What the window ends with when a user does that; a dialog that is still open then is cancelled.
Positions chosenBy(const LookUpOffer& offer, const std::function<void(const User&)>& actions) {
    std::thread user([&] {
        HWND dialog = nullptr;
        const bool isOpen = becomes([&] {
            dialog = FindWindowW(window::lookUpClass, nullptr);
            return dialog && IsWindowVisible(dialog);
        });
        EXPECT_TRUE(isOpen) << "the dialog did not open";
        if (!isOpen)
            return;
        SetForegroundWindow(dialog);
        const User at(dialog);
        actions(at);
        if (!becomes([&] { return !IsWindow(dialog); }))
            at.cancel();
    });
    const Positions chosen = makeLookUpWindow()->choose(offer);
    user.join();
    return chosen;
}

TEST(LookUpWindow, EnterTakesTheFirstRow) {
    EXPECT_EQ(chosenBy(customers(),
                       [](const User& user) {
                           EXPECT_EQ(user.title(), L"客户");
                           EXPECT_TRUE(user.sees(4));
                           EXPECT_EQ(user.count(), L"共 4 条记录");
                           press(VK_RETURN);
                       }),
              Positions{0});
}

TEST(LookUpWindow, ArrowsMoveInTheListWhileTheSearchHasTheFocus) {
    EXPECT_EQ(chosenBy(customers(),
                       [](const User& user) {
                           EXPECT_TRUE(user.stands(0));
                           press(VK_DOWN);
                           press(VK_DOWN);
                           EXPECT_TRUE(user.stands(2));
                           press(VK_UP);
                           EXPECT_TRUE(user.stands(1));
                           press(VK_RETURN);
                       }),
              Positions{1});
}

TEST(LookUpWindow, TypingFiltersAndPositionsStayThoseOfTheOffer) {
    EXPECT_EQ(chosenBy(customers(),
                       [](const User& user) {
                           user.type(L"贸易");
                           EXPECT_TRUE(user.sees(2));
                           press(VK_DOWN);
                           EXPECT_TRUE(user.stands(1));
                           press(VK_RETURN);
                       }),
              Positions{2});
}

TEST(LookUpWindow, EscTakesNothing) {
    EXPECT_EQ(chosenBy(customers(), [](const User&) { press(VK_ESCAPE); }), Positions{});
}

TEST(LookUpWindow, NothingFoundCannotBeTaken) {
    EXPECT_EQ(chosenBy(customers(),
                       [](const User& user) {
                           user.type(L"zzz");
                           EXPECT_TRUE(user.sees(0));
                           EXPECT_EQ(user.count(), L"没有找到匹配的记录。");
                           EXPECT_FALSE(IsWindowEnabled(GetDlgItem(user.dialog(), IDOK)));
                           press(VK_RETURN);
                           EXPECT_TRUE(IsWindow(user.dialog()));
                           press(VK_ESCAPE);
                       }),
              Positions{});
}

TEST(LookUpWindow, ChecksStayWhileTheSearchChanges) {
    EXPECT_EQ(chosenBy(customers(true),
                       [](const User& user) {
                           EXPECT_TRUE(user.sees(4));
                           press(VK_TAB); // to the list
                           press(VK_DOWN);
                           EXPECT_TRUE(user.stands(1));
                           press(VK_SPACE);
                           EXPECT_TRUE(becomes([&] { return user.count() == L"共 4 条记录  已选 1 条"; }));
                           user.type(L"D001");
                           EXPECT_TRUE(user.sees(1));
                           press(VK_SPACE);
                           EXPECT_TRUE(becomes([&] { return user.count() == L"共 1 条记录  已选 2 条"; }));
                           press(VK_RETURN);
                       }),
              (Positions{1, 3}));
}

} // namespace
} // namespace orv::erp
