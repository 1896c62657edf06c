' Controls without a container, and their events, from a script.

Dim etiqueta, campo, cambios
Set etiqueta = CreateObject(Library & "lbl")
etiqueta.Caption = "12,5"
CheckEqual "Caption", "12,5", etiqueta.Caption
CheckEqual "default member", "12,5", etiqueta
etiqueta.TipoDato = 1
CheckEqual "ValorVerdadero", 12.5, etiqueta.ValorVerdadero
Dim formato
formato = -1
CheckEqual "ValorVerdadero of a variable", 12.5, etiqueta.ValorVerdadero(formato)
CheckEqual "the variable", 1, formato
etiqueta.Font.Bold = True
CheckEqual "Font", True, etiqueta.Font.Bold
CheckEqual "UncompletedEvents", 0, etiqueta.UncompletedEvents
On Error Resume Next
etiqueta.BackColor = "azul"
CheckError "a colour that is none", 13
etiqueta.UncompletedEvents = 3
If Err.Number = 0 Then CheckEqual "a property that is only read", "an error", "none"
Err.Clear
On Error GoTo 0

cambios = 0
Sub Campo_Change()
    cambios = cambios + 1
End Sub

Set campo = CreateObject(Library & "get")
campo.Text = "uno"
CheckEqual "Text", "uno", campo.Text
CheckEqual "its default member", "uno", campo & ""
Dim escucha
On Error Resume Next
WScript.ConnectObject campo, "Campo_"
escucha = (Err.Number = 0)
Err.Clear
On Error GoTo 0
If escucha Then
    campo.Text = "dos"
    CheckEqual "events", 1, cambios
    WScript.DisconnectObject campo
    campo.Text = "tres"
    CheckEqual "events after leaving", 1, cambios
Else
    WScript.Echo "This script host connects no events."
End If
Finish
