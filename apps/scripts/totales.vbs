' totales.vbs ENTRADA.csv SALIDA.csv
'
' Lee un archivo de ventas separado por puntos y coma (cliente;provincia;importe, con una línea de títulos), lo
' ordena por provincia y cliente como los ordena un diccionario español, suma los importes de cada provincia y
' escribe las filas ordenadas seguidas de los totales.
'
' Reads a file of sales separated by semicolons, sorts it as a Spanish dictionary does, adds up the amounts of
' each province and writes the sorted rows followed by the totals.
Option Explicit

Const Cliente = 1, Provincia = 2, Importe = 3
Const Ascendente = 1

Dim files, ventas, totales
Set files = CreateObject("Scripting.FileSystemObject")
If WScript.Arguments.Count <> 2 Then
    WScript.Echo "totales.vbs ENTRADA.csv SALIDA.csv"
    WScript.Quit 2
End If

Set ventas = LeerVentas(WScript.Arguments(0))
ventas.QSort Provincia, Ascendente, Cliente, Ascendente
Set totales = ventas.CrearMatrizAgrupada(Array(Importe), Array(Provincia))
Escribir WScript.Arguments(1)
WScript.Echo ventas.Rows & " ventas, " & totales.Rows & " provincias, total " & FormatNumber(ventas.Sum(Importe), 2)

Function LeerVentas(nombre)
    Dim archivo, campos, tabla
    Set tabla = CreateObject("TeselaControls_basicos.cMatriz")
    tabla.Dimension2D Cliente, Importe, 1
    Set archivo = files.OpenTextFile(nombre)
    If Not archivo.AtEndOfStream Then archivo.ReadLine
    Do Until archivo.AtEndOfStream
        campos = Split(archivo.ReadLine, ";")
        If UBound(campos) = 2 Then tabla.AddRow campos(0), campos(1), CCur(campos(2))
    Loop
    archivo.Close
    Set LeerVentas = tabla
End Function

Sub Escribir(nombre)
    Dim archivo, i
    Set archivo = files.CreateTextFile(nombre, True)
    archivo.WriteLine "provincia;cliente;importe"
    For i = 1 To ventas.LastRow
        archivo.WriteLine ventas.Item(Provincia, i) & ";" & ventas.Item(Cliente, i) & ";" & ventas.Item(Importe, i)
    Next
    archivo.WriteLine "total por provincia"
    For i = totales.FirstRow To totales.LastRow
        archivo.WriteLine totales.Item(2, i) & ";" & totales.Item(1, i)
    Next
    archivo.Close
End Sub
