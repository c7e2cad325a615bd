' The whole job of a list window, from a script: creates the control and the sample host's objects late-bound, enters
' conditions as a user does, and prints the SQL that the control builds and how many bills it finds.
'
'   regsvr32 ORVFilter.ocx
'   regsvr32 OrvSampleHost.dll
'   cscript //nologo filter.vbs
'
' The file is plain ASCII, because script engines read other files by the system's code page. host.Text
' makes the Chinese ones: not every engine's ChrW can.
Option Explicit

Const Receipts = 1000201
Const Payments = 1000202
Const InvalidCall = 5

Dim host, control
Set host = Created("OrvSample.Host")
Set control = Created("ORVFilter.Filter")

SetUp
ReadMembers
EnterConditions
BuildTexts
SaveAndReload
ShowErrors
control.ClearMem
Say "done", "the host drops the control"

Sub SetUp()
    Dim ok
    control.dctControl = host.Settings()
    control.ConditionExtHide = CreateObject("QDX.Dictionary")
    control.ShowFilterStyle = 0
    control.DataSrv = host.DataService(Receipts)
    ok = control.Initialize(Receipts & "," & Payments)
    Say "Initialize", CInt(ok)
End Sub

Sub ReadMembers()
    Dim year, period, first, last, known, found, key, index
    Say "class type", control.DataSrv.ClassTypeID
    Say "header columns", control.m_Header.Count
    ' A property without parameters takes those of its result's default member.
    Say "first column", control.m_Header(1)("FKey")
    Say "keys", control.UseKey("ALL").Count
    Say "pages", control.GetSelectPageList
    Say "most pages", control.EnableMostPage()
    Say "today", Digits(control.GetToday())
    known = control.GetCurPeriod(year, period, first, last)
    Say "period", CInt(known) & " " & year & "/" & period & " " & Digits(first) & " to " & Digits(last)
    key = "before"
    index = -1
    Set found = control.GetFieldInfoByKey("no such field", key, index)
    Say "unknown field", CInt(found Is Nothing) & " " & key & " " & index
    control.m_JCType = True
    Say "m_JCType", CInt(control.M_jctype)
End Sub

Sub EnterConditions()
    ' ( date >= 2024-02-01 or customer contains 1 ) and amount > 1000.5
    Enter 1, "(", host.Text("65E5 671F"), host.Text("5927 4E8E 7B49 4E8E"), "2024-02-01", "", host.Text("6216")
    Enter 2, "", host.Text("5BA2 6237"), host.Text("5305 542B"), "1", ")", host.Text("5E76 4E14")
    Enter 3, "", host.Text("91D1 989D") & "+" & host.Text("539F 5E01"), host.Text("5927 4E8E"), "1000.5", "", ""
End Sub

Sub BuildTexts()
    Dim where, headSort, entrySort, ok, found
    where = ""
    ok = control.GetFilterSql(where)
    Say "GetFilterSql", CInt(ok)
    Say "SQL", Escaped(where)
    ok = control.GetSortString(headSort, entrySort)
    Say "GetSortString", CInt(ok) & " [" & headSort & "] [" & entrySort & "]"
    Set found = host.List(Receipts, where, headSort, entrySort)
    Say "bills", found("Bills") & " of " & host.Rows(Receipts, "", "", "")
    Say "first bills", found("FirstKeys")
End Sub

' A scheme keeps conditions, sort order, columns and pages. Its entry record is the host's to read and to hand back.
Sub SaveAndReload()
    Dim before, after, entry, headSort, entrySort, ok
    ok = control.GetFilterSql(before)
    control.ShowScheme = True
    control.SaveScheme
    Say "scheme", control.dctProFile("FSchemeName") & " of " & control.dctProFile("FTranType")
    Set entry = control.dctProFileEntry
    Say "scheme conditions", UBound(Split(entry("Relation"), "||"))
    Say "scheme pages", entry("SelPage")
    entry("OrderBy") = "FDate=0|FBillNo=1|"
    ok = control.RefreshProfile(entry)
    Say "RefreshProfile", CInt(ok)
    ok = control.GetFilterSql(after)
    Say "same SQL", CInt(before = after)
    ok = control.GetSortString(headSort, entrySort)
    Say "sort of the scheme", headSort
    Say "header after the scheme", control.m_Header.Count
    Say "SaveLastUseScheme", CInt(control.SaveLastUseScheme())
End Sub

' Every failure reaches the script as an error object: run-time errors by their number, components' errors as they are.
Sub ShowErrors()
    Dim where, ok
    On Error Resume Next

    ' A bracket that nothing closes. With the second argument the control raises what it would show otherwise.
    Enter 3, "(", "", "", "", "", ""
    where = "untouched"
    ok = control.GetFilterSql(where, True)
    Report "open bracket", InvalidCall

    control.NoSuchMember
    Report "unknown member", 438
    ok = control.Initialize("1", "2")
    Report "too many arguments", 450
    control.DataSrv = CreateObject("QDX.Dictionary")
    Report "no data service", 438

    host.FailNext "ORVEBCGLView.GLData", "getanyrecordset", 5001, "broken on purpose"
    ok = control.GetToday()
    Report "failing component", 5001
End Sub

Sub Report(what, expected)
    Say what, "error " & Err.Number & " from " & Err.Source & ": " & Err.Description
    If Err.Number <> expected Then Say what, "EXPECTED error " & expected
    Err.Clear
End Sub

' Prints "name: value".
Sub Say(name, value)
    WScript.Echo name & ": " & value
End Sub

' A script error ends cscript without a word, so what may fail says so itself.
Function Created(progId)
    Dim made, problem
    On Error Resume Next
    Set made = CreateObject(progId)
    problem = Err.Description
    On Error GoTo 0
    If Not IsObject(made) Then
        WScript.Echo "cannot create " & progId & ": " & problem
        WScript.Quit 1
    End If
    Set Created = made
End Function

Sub Enter(line, left, field, compare, value, right, logic)
    On Error Resume Next
    host.FillRow control, line, left, field, compare, value, right, logic
    If Err.Number <> 0 Then Say "line " & line, "FAILED " & Err.Description
End Sub

' Dates without the user's own way of writing them.
Function Digits(moment)
    Digits = Year(moment) * 10000 + Month(moment) * 100 + Day(moment)
End Function

Function Escaped(text)
    Escaped = Replace(Replace(text, vbCr, "\r"), vbLf, "\n")
End Function
