' What stands before the calls of the VBScript client: each answer is written as
'     <file and line of the case> <answer>
' with texts quoted, all but printable ASCII as \uXXXX, and runs of more than 9 characters counted.
Option Explicit

' For the codes 128 to 159 of Windows-1252, the system's code page, what they stand for in Unicode. Codes
' without a character stand for themselves.
Const unlikeLatin1 = "20ac0081201a0192201e20262020202102c62030016020390152008d017d008f"
Const unlikeLatin1Too = "009020182019201c201d20222013201402dc21220161203a0153009d017e0178"

Function Repeat(text, count)
    Dim half
    If count = 0 Then
        Repeat = ""
    ElseIf count = 1 Then
        Repeat = text
    Else
        half = Repeat(text, count \ 2)
        Repeat = half & half
        If count Mod 2 = 1 Then Repeat = Repeat & text
    End If
End Function

' The engine has no AscW; Asc answers in the code page, with a question mark for what it does not hold.
Function Escaped(character)
    Dim code
    code = Asc(character)
    If code = 63 And character <> "?" Then
        Escaped = "\u????"
    ElseIf character = """" Or character = "\" Then
        Escaped = "\" & character
    ElseIf code >= 32 And code < 127 Then
        Escaped = character
    ElseIf code >= 128 And code < 160 Then
        Escaped = "\u" & Mid(unlikeLatin1 & unlikeLatin1Too, (code - 128) * 4 + 1, 4)
    Else
        Escaped = "\u" & LCase(Right("000" & Hex(code), 4))
    End If
End Function

Function Run(unit, count)
    If count > 9 Then Run = unit & "\*" & count & ";" Else Run = Repeat(unit, count)
End Function

Function Quoted(text)
    Dim written, i, character, last, count
    count = 0
    For i = 1 To Len(text)
        character = Mid(text, i, 1)
        If count > 0 And character = last Then
            count = count + 1
        Else
            If count > 0 Then written = written & Run(Escaped(last), count)
            last = character
            count = 1
        End If
    Next
    If count > 0 Then written = written & Run(Escaped(last), count)
    Quoted = """" & written & """"
End Function

' Numbers with a point under every setting.
Function Number(value)
    Number = Replace(CStr(value), ",", ".")
End Function

' What a variable holds: its value, whatever its type.
Function Variable(held)
    Select Case TypeName(held)
        Case "String": Variable = Quoted(held)
        Case "Boolean": If held Then Variable = "True" Else Variable = "False"
        Case "Date": Variable = "D" & Year(held) & "-" & Padded(Month(held)) & "-" & Padded(Day(held))
        Case "Empty", "Null": Variable = TypeName(held)
        Case Else: Variable = Number(held)
    End Select
End Function

Function Padded(digits)
    Padded = Right("0" & digits, 2)
End Function

' A result has a type as well.
Function Value(result)
    Select Case TypeName(result)
        Case "String", "Boolean", "Date", "Empty", "Null": Value = Variable(result)
        Case "Integer": Value = Number(result) & "%"
        Case "Long": Value = Number(result) & "&"
        Case "Single": Value = Number(result) & "!"
        Case "Double": Value = Number(result) & "#"
        Case "Currency": Value = Number(result) & "@"
        Case "Byte": Value = Number(result) & "b"
        Case Else: Value = TypeName(result)
    End Select
End Function

Sub Skip(place, reason)
    WScript.Echo place & " skip: " & reason
End Sub

' Writes the answer of a call that has just run, failed or not, and what its variables hold.
Sub Answer(place, result, variables)
    Dim number, written
    number = Err.Number
    If number = 0 Then
        written = Value(result)
    Else
        written = "error " & number
        If Err.Description = "" Then written = written & " without description"
        If Not IsEmpty(result) Then written = written & " with a result"
        Err.Clear
    End If
    If variables > 0 Then written = written & " ref " & Variable(v1)
    If variables > 1 Then written = written & " ref " & Variable(v2)
    If variables > 2 Then written = written & " ref " & Variable(v3)
    WScript.Echo place & " " & written
End Sub

Dim o, r, v1, v2, v3
On Error Resume Next

