' Conditions without a window: lays those of a scheme on the control and prints the SQL texts.
'
'   register.cmd                                    the control
'   regsvr32 SampleHost.dll                         the sample's components, which samples/cpp builds
'   cscript //nologo conditions.vbs [TRACE-FILE]
'   regsvr32 /u SampleHost.dll
'
' The file is plain ASCII, because script engines read other files by the system's code page.
Option Explicit

Dim control, service, settings, scheme, where, headSort, entrySort, ok
Set control = CreateObject("ORVFilter.Filter")
If WScript.Arguments.Count > 0 Then
    Set settings = CreateObject("QDX.Dictionary")
    settings("Trace") = WScript.Arguments(0)
    control.dctControl = settings
End If
Set service = CreateObject("ORVClassTpl.DataSrv")
service.ClassTypeID = 1
control.DataSrv = service
ok = control.Initialize()
WScript.Echo "Initialize: " & CInt(ok)

' "(", column, comparison from 0, value, ")", logic word. Any logic word but the Chinese "and",
' ChrW(&H5E76) & ChrW(&H4E14), is "or".
Set scheme = CreateObject("QDX.Dictionary")
scheme("Relation") = Condition("t_Receipt.FDate", 3, "2024-02-01 AND 2024-02-29", "OR") & _
    Condition("t_Receipt.FStatus", 0, "1", "")
scheme("OrderBy") = "FDate=1|FAmount=0|"
ok = control.RefreshProfile(scheme)
WScript.Echo "RefreshProfile: " & CInt(ok)
where = ""
ok = control.GetFilterSql(where, True) ' True: a mistake is raised, not shown
WScript.Echo "WHERE: " & Replace(where, vbCrLf, "\r\n")
ok = control.GetSortString(headSort, entrySort)
WScript.Echo "ORDER BY: " & headSort & entrySort
WScript.Echo "columns: " & control.m_Header.Count & ", the first is " & control.m_Header(1)("FColName")
control.ClearMem

Function Condition(column, comparison, value, logic)
    Dim part, text
    For Each part In Array("", column, comparison, value, "", logic)
        text = text & part & "##<&"
    Next
    Condition = text & "||"
End Function
