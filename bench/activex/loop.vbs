' The same loop over a table's cell and over a dictionary's item, in turn; the medians' ratio.
Option Explicit
Const Rounds = 9, Calls = 60000
Dim tabla, diccionario, ours(8), theirs(8), i
Set tabla = CreateObject("TeselaControls_basicos.cMatriz")
Set diccionario = CreateObject("Scripting.Dictionary")
tabla.Dimension2D 1, 1, 1, 1
diccionario.Item(1) = 0

Function TableSeconds()
    Dim start, n
    start = Timer
    For n = 1 To Calls
        tabla.Item(1, 1) = tabla.Item(1, 1) + 1
    Next
    TableSeconds = Timer - start
End Function

Function DictionarySeconds()
    Dim start, n
    start = Timer
    For n = 1 To Calls
        diccionario.Item(1) = diccionario.Item(1) + 1
    Next
    DictionarySeconds = Timer - start
End Function

Function Median(values)
    Dim a, b, kept
    For a = 0 To Rounds - 2
        For b = a + 1 To Rounds - 1
            If values(b) < values(a) Then
                kept = values(a)
                values(a) = values(b)
                values(b) = kept
            End If
        Next
    Next
    Median = values(Rounds \ 2)
End Function

TableSeconds
DictionarySeconds
For i = 0 To Rounds - 1
    ours(i) = TableSeconds()
    theirs(i) = DictionarySeconds()
Next
WScript.Echo "ratio" & vbTab & "activex script loop" & vbTab & "Scripting.Dictionary" & vbTab & Replace(FormatNumber(Median(theirs) / Median(ours), 2), ",", ".")
