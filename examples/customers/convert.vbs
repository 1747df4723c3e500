' Turns a delimited file of customers into records of fixed width with new keys, the way a record-based
' program takes them over, and proves the result by a second reading that does without the component.
'
'     cscript //nologo convert.vbs customers.csv folder
'
' writes customers.dat and rejects.txt into the folder. Ends with 0 when every control total agrees.
' This file and the customers are text of Windows-1252, as script hosts read it.
Option Explicit

Const forReading = 1
Const fieldCount = 7
Const epsSimpleQuote = 1
Const epsCustom = 4
' The counter continues after the last key of the existing customers.
Const lastKeyInUse = "C0ZY7"

' A record: where each column begins (from 1) and how wide it is.
Const keyAt = 1, keyWidth = 5
Const codeAt = 6, codeWidth = 6
Const departmentAt = 12, departmentWidth = 3
Const nameAt = 15, nameWidth = 26
Const townAt = 41, townWidth = 20
Const balanceAt = 61, balanceWidth = 12
Const sinceAt = 73, sinceWidth = 10
Const invoiceAt = 83, invoiceWidth = 8
' The badge printer is driven from C: its label is a buffer that a NUL ends.
Const labelAt = 91, labelWidth = 16
Const recordWidth = 106

Dim chaine, files, folder, source, records, rejects
Dim lineNumber, accepted, rejected, separators, balances, key
Dim usedCodes, departments, samples(399)

Set chaine = CreateObject("Vorla6.VorlaChaine")
Set files = CreateObject("Scripting.FileSystemObject")
Set usedCodes = CreateObject("Scripting.Dictionary")
Set departments = CreateObject("Scripting.Dictionary")

folder = WScript.Arguments(1)
Convert
ShowSamples
ShowRejects
If ControlTotalsAgree() Then
    WScript.Echo "control totals agree"
    WScript.Quit 0
End If
WScript.Echo "control totals DISAGREE"
WScript.Quit 1

' --- conversion ---

Sub Convert()
    Dim line
    Set source = files.OpenTextFile(WScript.Arguments(0), forReading)
    Set records = files.CreateTextFile(files.BuildPath(folder, "customers.dat"), True)
    Set rejects = files.CreateTextFile(files.BuildPath(folder, "rejects.txt"), True)
    accepted = 0
    rejected = 0
    separators = 0
    balances = CCur(0)
    key = lastKeyInUse
    lineNumber = 1
    line = source.ReadLine
    Do Until source.AtEndOfStream
        line = source.ReadLine
        lineNumber = lineNumber + 1
        separators = separators + chaine.Occurrence(line, ";")
        ConvertLine line
    Loop
    source.Close
    records.Close
    rejects.Close
    WScript.Echo CStr(lineNumber - 1) & " customers read, " & accepted & " accepted, " & rejected & " rejected"
    WScript.Echo "keys " & chaine.NumLet(lastKeyInUse) & " to " & key & ", " & departments.Count & _
        " departments, balances " & chaine.CBR(balances, 14)
    WScript.Echo ""
End Sub

Sub ConvertLine(line)
    Dim code, department, name, amount, balance, since, record
    If Trim(line) = "" Then
        Reject line, "blank line", ""
        Exit Sub
    End If
    If chaine.Occurrence(line, ";") <> fieldCount - 1 Then
        Reject line, (chaine.Occurrence(line, ";") + 1) & " fields, not " & fieldCount, ""
        Exit Sub
    End If

    ' A separator that begins the line is taken for its frame, and field 1 is then the department.
    If Left(line, 1) = ";" Or Trim(Field(line, 1)) = "" Then
        Reject line, "no code", ""
        Exit Sub
    End If
    ' Numbers are filled with zeros, letters put in upper case: what was typed "42" and " 042" is one code.
    code = chaine.Zclé(Field(line, 1), codeWidth)
    If usedCodes.Exists(code) Then
        Reject line, "code of line " & usedCodes(code) & " again", Field(line, 1)
        Exit Sub
    End If

    amount = Field(line, 5)
    balance = AmountOf(amount)
    If IsNull(balance) Then
        Reject line, "no amount", amount
        Exit Sub
    End If
    since = SortableDate(Field(line, 6))
    If IsNull(since) Then
        Reject line, "no date", Field(line, 6)
        Exit Sub
    End If

    key = chaine.NumLet(key)
    department = chaine.Zclé(Field(line, 2), departmentWidth)
    name = CleanName(Field(line, 3))
    record = key & code & department & chaine.CBR(name, nameWidth) & chaine.CBR(Field(line, 4), townWidth) & _
        chaine.CBL(balance, balanceWidth) & chaine.CBR(since, sinceWidth) & _
        chaine.CBL(InvoiceNumber(Field(line, 7)), invoiceWidth) & LabelBuffer(name)
    records.WriteLine record

    usedCodes.Add code, lineNumber
    departments(department) = departments(department) + 1
    balances = balances + balance
    samples(accepted) = record
    accepted = accepted + 1
End Sub

Function Field(line, rank)
    Field = chaine.ExtraitChaine(line, rank, ";")
End Function

' Quotes go, tabs and repeated blanks become one blank.
Function CleanName(ByVal name)
    name = chaine.Transfrm(name, """", "")
    name = chaine.Transfrm(name, vbTab, " ")
    Do While chaine.Occurrence(name, "  ") > 0
        name = chaine.Transfrm(name, "  ", " ")
    Loop
    CleanName = Trim(name)
End Function

' Groups of thousands were typed with blanks, with no-break spaces or with points. Null if it is not an amount.
Function AmountOf(ByVal amount)
    Dim value
    amount = chaine.Transfrm(amount, " ", "")
    amount = chaine.Transfrm(amount, Chr(160), "")
    amount = chaine.Transfrm(amount, ".", "")
    If amount = "" Then amount = "0"
    AmountOf = Null
    On Error Resume Next
    value = CCur(amount)
    If Err.Number = 0 Then AmountOf = value
End Function

' Day, month and year, between strokes, points or dashes, as year-month-day; Null if it is not a date.
Function SortableDate(ByVal typed)
    Dim day, month, year
    SortableDate = ""
    If typed = "" Then Exit Function
    typed = chaine.Transfrm(typed, ".", "/")
    typed = chaine.Transfrm(typed, "-", "/")
    SortableDate = Null
    If chaine.Occurrence(typed, "/") <> 2 Then Exit Function
    day = chaine.ExtraitChaine(typed, 1, "/")
    month = chaine.ExtraitChaine(typed, 2, "/")
    year = chaine.ExtraitChaine(typed, 3, "/")
    If Not IsDay(day, month, year) Then Exit Function
    SortableDate = chaine.Zclé(year, 4) & "-" & chaine.Zclé(month, 2) & "-" & chaine.Zclé(day, 2)
End Function

' A day that the month does not have comes back as one of the next month.
Function IsDay(dayTyped, monthTyped, yearTyped)
    Dim made
    IsDay = False
    On Error Resume Next
    made = DateSerial(CInt(yearTyped), CInt(monthTyped), CInt(dayTyped))
    If Err.Number = 0 Then IsDay = Day(made) = CInt(dayTyped) And Month(made) = CInt(monthTyped)
End Function

' References have grown over the years: 4512, FA/2019/0123, FA/2024/A/77. The number always comes last.
Function InvoiceNumber(reference)
    InvoiceNumber = chaine.ExtraitChaine(reference, 1, "/", True)
End Function

Function LabelBuffer(name)
    LabelBuffer = Left(Left(name, labelWidth - 1) & String(labelWidth, Chr(0)), labelWidth)
End Function

' What holds quotes itself is set between bars.
Sub Reject(line, reason, found)
    Dim quotedLine
    If chaine.Occurrence(line, """") > 0 Then
        quotedLine = chaine.Parse(line, epsCustom, "|")
    Else
        quotedLine = chaine.Parse(line)
    End If
    If found <> "" Then reason = reason & ": " & chaine.Parse(found, epsSimpleQuote)
    rejects.WriteLine chaine.CBL(lineNumber, 4) & "  " & chaine.CBR(reason, 38) & quotedLine
    rejected = rejected + 1
End Sub

' --- report ---

Sub ShowSamples()
    Dim i, record
    WScript.Echo "key   code   dep name                       town                      balance since       invoice label"
    For i = 0 To 11
        record = samples(i * (accepted - 1) \ 11)
        WScript.Echo Mid(record, keyAt, keyWidth) & " " & Mid(record, codeAt, codeWidth) & " " & _
            Mid(record, departmentAt, departmentWidth) & " " & Mid(record, nameAt, nameWidth) & " " & _
            Mid(record, townAt, townWidth) & Mid(record, balanceAt, balanceWidth) & " " & _
            Mid(record, sinceAt, sinceWidth) & " " & Mid(record, invoiceAt, invoiceWidth) & " " & _
            chaine.SplitStr(Mid(record, labelAt, labelWidth))
    Next
    WScript.Echo ""
End Sub

Sub ShowRejects()
    Dim report
    Set report = files.OpenTextFile(files.BuildPath(folder, "rejects.txt"), forReading)
    Do Until report.AtEndOfStream
        WScript.Echo report.ReadLine
    Loop
    report.Close
    WScript.Echo ""
End Sub

' --- control totals, by what the script language has ---

Function ControlTotalsAgree()
    Dim stream, line, lines, fieldsSplit, found, cents, codes, label, wrongLines, highest
    lines = 0
    fieldsSplit = 0
    Set stream = files.OpenTextFile(WScript.Arguments(0), forReading)
    line = stream.ReadLine
    Do Until stream.AtEndOfStream
        line = stream.ReadLine
        lines = lines + 1
        ' Counted by what is missing without them.
        fieldsSplit = fieldsSplit + Len(line) - Len(Replace(line, ";", ""))
    Loop
    stream.Close

    found = 0
    cents = 0
    wrongLines = 0
    highest = KeyNumber(lastKeyInUse)
    Set codes = CreateObject("Scripting.Dictionary")
    Set stream = files.OpenTextFile(files.BuildPath(folder, "customers.dat"), forReading)
    Do Until stream.AtEndOfStream
        line = stream.ReadLine
        found = found + 1
        cents = cents + CentsOf(Trim(Mid(line, balanceAt, balanceWidth)))
        codes(Mid(line, codeAt, codeWidth)) = found
        label = chaine.SplitStr(Mid(line, labelAt, labelWidth))
        ' Each key is one more than the one before, in base 36, and each label begins the name.
        highest = highest + 1
        If Len(line) <> recordWidth Or KeyNumber(Mid(line, keyAt, keyWidth)) <> highest Or _
            label <> Left(Trim(Mid(line, nameAt, nameWidth)), labelWidth - 1) Then wrongLines = wrongLines + 1
    Loop
    stream.Close

    ControlTotalsAgree = True
    Compare "lines", accepted + rejected, lines
    Compare "separators", separators, fieldsSplit
    Compare "records", accepted, found
    Compare "distinct codes", accepted, codes.Count
    Compare "balances in cents", CDbl(balances * 100), cents
    Compare "last key", KeyNumber(key), KeyNumber(lastKeyInUse) + found
    Compare "records out of form", 0, wrongLines
    ControlTotalsAgree = disagreements = 0
End Function

Dim disagreements

Sub Compare(what, converted, counted)
    Dim verdict
    verdict = "agree"
    If converted <> counted Then
        verdict = "DISAGREE"
        disagreements = disagreements + 1
    End If
    WScript.Echo chaine.CBR(what, 22) & chaine.CBL(converted, 14) & chaine.CBL(counted, 14) & "  " & verdict
End Sub

' The number that a key writes in base 36.
Function KeyNumber(text)
    Dim i
    KeyNumber = 0
    For i = 1 To Len(text)
        KeyNumber = KeyNumber * 36 + InStr("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ", Mid(text, i, 1)) - 1
    Next
End Function

' Hundredths of a number that is written with a point.
Function CentsOf(ByVal text)
    Dim point, sign
    sign = 1
    If Left(text, 1) = "-" Then
        sign = -1
        text = Mid(text, 2)
    End If
    point = InStr(text & ".", ".")
    CentsOf = sign * (CDbl(Left(text, point - 1)) * 100 + CDbl(Left(Mid(text, point + 1) & "00", 2)))
End Function
