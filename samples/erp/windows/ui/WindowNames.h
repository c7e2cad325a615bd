#pragma once

// Class names, control ids and texts by which test programs and screen readers' scripts find the sample's windows. They
// never change.
//
// | Window            | Class             | Text                                                                  |
// |-------------------|-------------------|-----------------------------------------------------------------------|
// | list window       | OrvListMain       | class type " - " 单据列表 " - " user, "收款单据 - 单据列表 - Admin"   |
// | filter dialog     | OrvFilterDialog   | 过滤; hidden, not destroyed, between two openings                     |
// | look-up dialog    | OrvLookUpDialog   | name of the base data or the class type: 客户, 销售出库单             |
// | message boxes     | #32770            | of the list window: the title of its window; of the control: its own  |
//
// The controls of each are found by GetDlgItem with the ids below. Texts are translated with --lang; classes and ids
// are the same in every language. The list itself is a "SysListView32" (virtual) with the headings above it and the
// totals below it in windows of their own. The control stands in a window of class "OrvOleSite".
namespace orv::erp::window {

inline constexpr const wchar_t* mainClass = L"OrvListMain";
inline constexpr const wchar_t* headingClass = L"OrvListHeading";
inline constexpr const wchar_t* totalsClass = L"OrvListTotals";
inline constexpr const wchar_t* filterClass = L"OrvFilterDialog";
inline constexpr const wchar_t* lookUpClass = L"OrvLookUpDialog";

// Of the list window; the commands have the keys F3, F5, F4, Ctrl+C, Ctrl+Shift+C and Ctrl+A.
inline constexpr int classTypes = 101; ///< combo box
inline constexpr int filter = 102;     ///< button, 过滤(F3)
inline constexpr int refresh = 103;    ///< button, 刷新(F5)
inline constexpr int showSql = 104;    ///< check box in the shape of a button, SQL(F4)
inline constexpr int sql = 105;        ///< read-only edit with the statement
inline constexpr int heading = 106;
inline constexpr int list = 107;
inline constexpr int totals = 108;
inline constexpr int status = 109; ///< status bar: bills and rows, time, user
inline constexpr int notice = 110; ///< text in place of rows when there are none
inline constexpr int copyRows = 111;
inline constexpr int copySql = 112;
inline constexpr int classTypesLabel = 113;
inline constexpr int selectAll = 114;

// Of the filter dialog; its buttons are IDOK (1) and IDCANCEL (2).
inline constexpr int control = 201; ///< the place of the control

// Of the look-up dialog; its buttons are IDOK (1) and IDCANCEL (2).
inline constexpr int search = 301;  ///< edit
inline constexpr int records = 302; ///< list view
inline constexpr int found = 303;   ///< text: how many records there are
inline constexpr int searchLabel = 304;

} // namespace orv::erp::window
