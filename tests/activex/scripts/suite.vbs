' What the lists of calls (calls.awk) share: each statement runs under On Error Resume Next, Note keeps what became
' of it, and one of Ran, Gave and Refused checks that.

Const Library = "TeselaControls_basicos."
Dim failures, checks
Dim got, errorNumber, errorWords, errorSource
failures = 0
checks = 0

Sub Note()
    errorNumber = Err.Number
    errorWords = Err.Description
    errorSource = Err.Source
    Err.Clear
End Sub

Sub Failed(statement, words)
    failures = failures + 1
    WScript.Echo "FAILED " & statement & ": " & words
End Sub

Sub Ran(statement)
    checks = checks + 1
    If errorNumber <> 0 Then Failed statement, "error " & errorNumber & ", " & errorWords
End Sub

Sub Gave(statement, expected)
    Ran statement
    If errorNumber = 0 Then
        If Not Alike(expected, got) Then Failed statement, "expected " & Described(expected) & ", got " & Described(got)
    End If
    got = Empty
End Sub

Sub Refused(statement, number, words, className)
    checks = checks + 1
    If errorNumber = 0 Then
        Failed statement, "no error, but " & number & " was to come"
    ElseIf errorNumber <> number Or errorWords <> words Or errorSource <> Library & className Then
        Failed statement, "error " & errorNumber & ", " & errorWords & ", of " & errorSource & " in place of " & number & ", " & words
    End If
    got = Empty
End Sub

' Numbers may be of another kind, all else is of the same type.
Function Alike(expected, actual)
    Alike = False
    If IsNull(expected) Or IsEmpty(expected) Then
        Alike = (VarType(expected) = VarType(actual))
    ElseIf VarType(expected) = VarType(actual) Or (IsAmount(expected) And IsAmount(actual)) Then
        Alike = (expected = actual)
    End If
End Function

Function IsAmount(value)
    Select Case VarType(value)
        Case vbInteger, vbLong, vbSingle, vbDouble, vbCurrency, vbByte
            IsAmount = True
        Case Else
            IsAmount = False
    End Select
End Function

Function Described(value)
    Described = value & " (" & TypeName(value) & ")"
End Function

Sub Finish(expected)
    WScript.Echo checks & " checks, " & failures & " failed"
    If checks <> expected Then WScript.Echo expected & " checks were to be made"
    If failures > 0 Or checks <> expected Then WScript.Quit 1
End Sub

' Words of the lists.

Function DateOf(years, months, days)
    DateOf = DateSerial(years, months, days)
End Function

Function TimeOf(hours, minutes, seconds)
    TimeOf = TimeSerial(hours, minutes, seconds)
End Function

Function Filled(text)
    Filled = (text <> "")
End Function

Function Rounded(number)
    Rounded = Round(number, 3)
End Function

Function Same(one, other)
    Same = (one Is other)
End Function

' Whether a number is there at all: of handles nothing else is known.
Function Some(number)
    Some = (number <> 0)
End Function
