' Shows that the objects of a script can serve as fields, options and frames: only the names of their properties
' count.
'
'     cscript //nologo fields.vbs
'
' Ends with 0 when every answer was as expected.
' This file is text of Windows-1252, as script hosts read it.
Option Explicit

Class Field
    Public Name
    Public Container
    Public Left
    Public Text
    Public Value
    Public Enabled
End Class

Class ThreeFields
    Public First
    Public Second
    Public Third

    Public Property Get Count
        Count = 3
    End Property

    Public Default Property Get Item(position)
        Select Case position
            Case 0
                Set Item = First
            Case 1
                Set Item = Second
            Case 2
                Set Item = Third
            Case Else
                Err.Raise 9
        End Select
    End Property
End Class

Class FieldForm
    Public Controls
End Class

Dim divers, frame, fields, form, disagreements

Set divers = CreateObject("Vorla6.VorlaDivers")
disagreements = 0
Set frame = NewField("fraPrix", 0, Empty)
Set fields = New ThreeFields
Set fields.First = NewField("txtDe", "10", frame)
Set fields.Second = NewField("txtA", "20", frame)
Set fields.Third = NewField("txtNote", "tout", Empty)
Set form = New FieldForm
Set form.Controls = fields

Show "Ctl_Argument", divers.Ctl_Argument(fields.First, fields.Second, True), True
Show "IsControlExist", divers.IsControlExist(fields.First), True
Show "IsControlExist(form)", divers.IsControlExist(form), False
Show "PropertyExist(Text)", divers.PropertyExist(fields.First, "Text"), True
Show "PropertyExist(Caption)", divers.PropertyExist(fields.First, "Caption"), False
Show "OptionButtonValue", divers.OptionButtonValue(fields), -1
fields.Third.Value = True
Show "OptionButtonValue", divers.OptionButtonValue(fields), 2
Show "OptionButtonValue(7)", divers.OptionButtonValue(fields, 7), -1

divers.FrameChangeEnabled form, frame, False
Show "FrameChangeEnabled", States, "non non oui, non"
divers.FormEffaceCtl form
Show "FormEffaceCtl", fields.First.Text & fields.Second.Text & fields.Third.Text, ""

If disagreements = 0 Then
    WScript.Echo "champs relus"
    WScript.Quit 0
End If
WScript.Echo "DESACCORD"
WScript.Quit 1

Function NewField(name, text, container)
    Dim made
    Set made = New Field
    made.Name = name
    made.Text = text
    made.Left = 0
    made.Value = False
    made.Enabled = True
    If IsObject(container) Then Set made.Container = container
    Set NewField = made
End Function

Function States
    States = State(fields.First) & " " & State(fields.Second) & " " & State(fields.Third) & ", " & State(frame)
End Function

Function State(field)
    If field.Enabled Then State = "oui" Else State = "non"
End Function

Sub Show(name, answer, expected)
    Dim verdict
    verdict = ""
    If answer <> expected Then
        verdict = "  au lieu de " & expected
        disagreements = disagreements + 1
    End If
    WScript.Echo "  " & name & " : " & answer & verdict
End Sub
