' Dates, tables and buffers from a script.

Dim fecha, tabla, otra, i
Set fecha = CreateObject(Library & "cFecha")
fecha.Value = DateSerial(2024, 2, 29)
CheckEqual "Texto", "29/02/2024", fecha.Texto
CheckEqual "default member", DateSerial(2024, 2, 29), fecha.Value
CheckEqual "DiasMes", 29, fecha.DiasMes()
CheckEqual "DiasMes of another date", 31, fecha.DiasMes(DateSerial(2024, 1, 5))
CheckEqual "dPrMes", DateSerial(2024, 2, 1), fecha.dPrMes()
CheckEqual "dUlMes", DateSerial(2024, 2, 29), fecha.dUlMes()
CheckEqual "DomingoResurreccion", DateSerial(2024, 3, 31), fecha.DomingoResurreccion(2024)
fecha.Mk_Date 9, 5, 2023
CheckEqual "Mk_Date", "09/05/2023", fecha.Texto
fecha.SetEspecial 1
On Error Resume Next
fecha.Value = "nada"
CheckEqual "words of an error", "El tipo no coincide", Err.Description
CheckEqual "source of an error", "TeselaControls_basicos.cFecha", Err.Source
CheckError "wrong type", 13
fecha.SetEspecial
CheckError "missing argument", 449
fecha.DiasMes 1, 2, 3
CheckError "too many arguments", 450
fecha.NoHay
CheckError "unknown member", 438
On Error GoTo 0

Set tabla = CreateObject(Library & "cMatriz")
tabla.Dimension2D 1, 3, 1
For i = 1 To 5
    tabla.AddRow "fila " & i, i * 1.5, DateSerial(2024, 1, i)
Next
CheckEqual "Rows", 5, tabla.Rows
CheckEqual "Cols", 3, tabla.Cols
CheckEqual "Item", "fila 3", tabla.Item(1, 3)
CheckEqual "Item of the default member", 4.5, tabla(2, 3)
tabla.Item(1, 3) = "tres"
CheckEqual "written Item", "tres", tabla.Item(1, 3)
CheckEqual "nothing beyond the end", True, IsNull(tabla.Item(9, 9))
Set tabla.Item(1, 1) = fecha
CheckEqual "an object in a cell", True, tabla.Item(1, 1) Is fecha
tabla.Item(1, 2) = Empty
CheckEqual "Empty in a cell", True, IsEmpty(tabla.Item(1, 2))
tabla.Item(1, 2) = Null
CheckEqual "Null in a cell", True, IsNull(tabla.Item(1, 2))
tabla.Item(1, 2) = CCur("12,3456")
CheckEqual "Currency in a cell", CCur("12,3456"), tabla.Item(1, 2)
tabla.Item(1, 2) = Array(1, "dos", 3)
Dim celdas
celdas = tabla.Item(1, 2)
CheckEqual "array in a cell", "dos", celdas(1)
Set otra = tabla.Clone()
CheckEqual "Clone", 5, otra.Rows
otra.DeleteRow 1, True
CheckEqual "DeleteRow", 4, otra.Rows
CheckEqual "the original", 5, tabla.Rows
celdas = otra.GetArray()
CheckEqual "bounds of the array", 3, UBound(celdas, 1)
CheckEqual "DataFromVariant2D", True, tabla.DataFromVariant2D(celdas)
CheckEqual "its rows", 4, tabla.Rows
On Error Resume Next
tabla.Dimension2D "x", 3
CheckError "a wrong size", 13
On Error GoTo 0

Dim buffer
Set buffer = CreateObject(Library & "cBinBuffer")
On Error Resume Next
buffer.BufferSize = "x"
If Err.Number = 0 Then CheckEqual "a wrong buffer size", "an error", "none"
Err.Clear
On Error GoTo 0

Dim lienzo, html
Set lienzo = CreateObject(Library & "cCanvas")
Set html = CreateObject(Library & "cHTML")
Set html.Canvas = lienzo
CheckEqual "the same canvas", True, html.Canvas Is lienzo
html.HTMLText = "<b>hola</b>"
CheckEqual "HTMLText", "<b>hola</b>", html.HTMLText
On Error Resume Next
Set html.Canvas = fecha
CheckError "an object of another class", 13
On Error GoTo 0
Finish
