' Writes a trace of what the control and its host ask of each other:   cscript //nologo trace.vbs FILE [mask]
'
' Needs what filter.vbs needs. The file grows by one line a call; with "mask" as the second word it shows no values.
Option Explicit

Dim host, control, settings, sql
Set host = CreateObject("OrvSample.Host")
Set control = CreateObject("ORVFilter.Filter")
Set settings = host.Settings()
settings("Trace") = WScript.Arguments(0)
If WScript.Arguments.Count > 1 Then settings("TraceMask") = WScript.Arguments(1)

control.dctControl = settings
control.DataSrv = host.DataService(1000201)
WScript.Echo "Initialize: " & CInt(control.Initialize())
' Summary contains "4711"; this Wine's script engine writes plain ASCII, so the captions are given by their units.
host.FillRow control, 1, "", host.Text("6458 8981"), host.Text("5305 542B"), "4711", "", ""
WScript.Echo "GetFilterSql: " & CInt(control.GetFilterSql(sql))
WScript.Echo "SQL: " & Replace(sql, vbCrLf, "\r\n")
control.ClearMem
