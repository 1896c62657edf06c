' What the script suites share: checks that count, and an exit status that says whether all held.
Option Explicit

Const Library = "TeselaControls_basicos."
Dim failures, checks
failures = 0
checks = 0

Sub CheckEqual(what, expected, actual)
    checks = checks + 1
    If VarType(expected) = VarType(actual) Or (IsNumeric(expected) And IsNumeric(actual)) Then
        If expected = actual Then Exit Sub
    End If
    failures = failures + 1
    WScript.Echo "FAILED " & what & ": expected " & expected & " (" & TypeName(expected) & "), got " & actual & " (" & TypeName(actual) & ")"
End Sub

' After a call under On Error Resume Next: the number of its error, 0 for none.
Sub CheckError(what, number)
    checks = checks + 1
    Dim found
    found = Err.Number
    Err.Clear
    If found = number Then Exit Sub
    failures = failures + 1
    WScript.Echo "FAILED " & what & ": expected error " & number & ", got " & found
End Sub

Sub Finish()
    WScript.Echo checks & " checks, " & failures & " failed"
    If failures > 0 Or checks = 0 Then WScript.Quit 1
End Sub
