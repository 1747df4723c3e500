' Checks a file of French bank accounts, and brings the dates and amounts of a delimited file of operations
' into the form for people and the form for storage.
'
'     cscript //nologo bank.vbs accounts.csv operations.csv
'
' Ends with 0 when both agree with what the script works out by itself. This file and the two others are text
' of Windows-1252, as script hosts read it.
Option Explicit

Const forReading = 1

Dim chaine, nombre, dates, files, agreed

Set chaine = CreateObject("Vorla6.VorlaChaine")
Set nombre = CreateObject("Vorla6.VorlaNumérique")
Set dates = CreateObject("Vorla6.VorlaDate")
Set files = CreateObject("Scripting.FileSystemObject")

agreed = True
CheckAccounts
ConvertOperations
If agreed Then
    WScript.Echo "comptes et opérations concordent"
    WScript.Quit 0
End If
WScript.Echo "DÉSACCORD"
WScript.Quit 1

' --- accounts ---

Sub CheckAccounts()
    Dim lines, line, holder, bank, branch, account, key, reason, read, refused, anyKey
    WScript.Echo "titulaire             banque guichet compte       clé   refusé"
    read = 0
    refused = 0
    anyKey = 0
    Set lines = files.OpenTextFile(WScript.Arguments(0), forReading)
    line = lines.ReadLine
    Do Until lines.AtEndOfStream
        line = lines.ReadLine
        read = read + 1
        holder = Field(line, 1)
        bank = Field(line, 2)
        branch = Field(line, 3)
        account = Field(line, 4)
        key = Field(line, 5)
        reason = ""
        ' Codes that are not numbers are reported here; the component would show a message box.
        If Not IsNumeric(bank) Then
            reason = "code banque non numérique"
        ElseIf Not IsNumeric(branch) Then
            reason = "code guichet non numérique"
        Else
            If nombre.RIBClé(bank, branch, account) = 0 Then anyKey = anyKey + 1
            If Not nombre.RIBControle(bank, branch, account, key) Then
                reason = "la clé est " & chaine.Zclé(nombre.RIBClé(bank, branch, account), 2)
            End If
            Agree reason = "", Divisible(bank, branch, account, key), line
            ' If there is a right key, the script's own computation accepts it too.
            If reason <> "" Then
                Agree True, Divisible(bank, branch, account, nombre.RIBClé(bank, branch, account)), line
            End If
        End If
        If reason <> "" Then
            refused = refused + 1
            WScript.Echo chaine.CBR(holder, 22) & chaine.CBR(bank, 7) & chaine.CBR(branch, 8) & _
                chaine.CBR(account, 13) & chaine.CBR(key, 6) & reason
        End If
    Loop
    lines.Close
    WScript.Echo read & " comptes lus, " & refused & " refusés; " & anyKey & " de reste nul, où toute clé passe"
    WScript.Echo ""
End Sub

' Bank, branch, account and key, as one number, are a multiple of 97 when the key is right. As 100000 and its
' powers leave 89, 15 and 3 behind, no number here needs more digits than the script has.
Function Divisible(bank, branch, account, key)
    Dim sum
    sum = 89 * CDbl(bank) + 15 * CDbl(branch) + 3 * CDbl(InDigits(account)) + CDbl(key)
    Divisible = (sum - 97 * Int(sum / 97) = 0)
End Function

Function InDigits(account)
    Const letters = "AJ BKSCLTDMUENVFOWGPXHQYIRZ"
    Dim i, place
    InDigits = ""
    For i = 1 To Len(account)
        place = InStr(letters, Mid(account, i, 1))
        If place > 0 Then
            InDigits = InDigits & (place - 1) \ 3 + 1
        Else
            InDigits = InDigits & Mid(account, i, 1)
        End If
    Next
End Function

' --- operations ---

Sub ConvertOperations()
    Dim lines, line, shown, stored, amount, storedAmount, total, cents, count
    WScript.Echo "saisi le      montant   date         libellé                         montant   enregistré"
    total = CCur(0)
    cents = 0
    count = 0
    Set lines = files.OpenTextFile(WScript.Arguments(1), forReading)
    line = lines.ReadLine
    Do Until lines.AtEndOfStream
        line = lines.ReadLine
        count = count + 1
        shown = dates.DateAMJtoJMA(Field(line, 1))
        stored = dates.DateJMAtoAMJ(shown)
        amount = nombre.NumFrmtSys(Field(line, 3), False)
        storedAmount = nombre.NumFrmtEnr(amount)
        WScript.Echo chaine.CBR(Field(line, 1), 11) & chaine.CBL(Field(line, 3), 10) & "   " & chaine.CBR(shown, 13) & _
            chaine.CBR(Field(line, 2), 26) & chaine.CBL(amount, 13) & "   " & stored & " " & chaine.CBL(storedAmount, 9)
        Agree Replace(Replace(Field(line, 1), "-", ""), ".", ""), stored, line
        If amount <> "" Then total = total + CCur(amount)
        cents = cents + CentsOf(Field(line, 3))
    Loop
    lines.Close
    Agree CDbl(total * 100), cents, "total"
    WScript.Echo count & " opérations, total " & nombre.NumFrmtSys(CStr(total)) & "; de " & _
        dates.DateEnTexte(DateSerial(2026, 1, 1), False) & " à " & dates.DateEnTexte(DateSerial(2026, 11, 15), False)
    WScript.Echo ""
End Sub

' Hundredths of a number typed with a point or a comma.
Function CentsOf(ByVal text)
    Dim point, sign
    sign = 1
    If Left(text, 1) = "-" Then
        sign = -1
        text = Mid(text, 2)
    End If
    text = Replace(text, ",", ".")
    point = InStr(text & ".", ".")
    CentsOf = sign * (CDbl(Left(text, point - 1)) * 100 + CDbl(Left(Mid(text, point + 1) & "00", 2)))
End Function

' --- both ---

Function Field(line, rank)
    Field = chaine.ExtraitChaine(line, rank, ";")
End Function

Sub Agree(ours, byHand, what)
    If ours = byHand Then Exit Sub
    agreed = False
    WScript.Echo "DÉSACCORD: " & what & ": " & ours & " et " & byHand
End Sub
