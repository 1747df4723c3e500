' Describes the computer, the way a program's window of technical information does.
'
'     cscript //nologo report.vbs
'
' Ends with 0 when every folder shown is there and asking for programs has left no file behind.
' This file is text of Windows-1252, as script hosts read it.
Option Explicit

Const notThere = 1, removable = 2, hardDisk = 3, network = 4, compactDisc = 5, memory = 6
Const longSymbol = 21, decimalSign = 22, currencyDigits = 25
Const countryName = 6, languageName = 4, shortDate = 31, longDate = 32, firstDay = 42, firstMonth = 56

Dim sys, chaine, files, disagreements

Set sys = CreateObject("Vorla6.VorlaSystem")
Set chaine = CreateObject("Vorla6.VorlaChaine")
Set files = CreateObject("Scripting.FileSystemObject")
disagreements = 0

ShowComputer
ShowDisks
ShowFolders
ShowSettings
ShowPrograms
If disagreements = 0 Then
    WScript.Echo "rapport terminé"
    WScript.Quit 0
End If
WScript.Echo "DÉSACCORD"
WScript.Quit 1

Sub Show(name, value)
    WScript.Echo "  " & chaine.CBR(name, 22) & value
End Sub

Sub Expect(holds, what)
    If holds Then Exit Sub
    WScript.Echo "  désaccord : " & what
    disagreements = disagreements + 1
End Sub

Sub ShowComputer()
    Dim version, name
    name = ""
    version = sys.WindowsVersion(name)
    WScript.Echo "Ordinateur"
    Show "nom", sys.GetComputerName
    ' Versions newer than the list have no code, and no name after "Windows ".
    If version = 0 Then name = name & "plus récent que Vista"
    Show "système", name
    Show "95 ou NT 4", YesOrNo(sys.OsVersion95NT)
    Show "économiseur d'écran", YesOrNo(sys.IsScreenSaverRunning)
    WScript.Echo ""
    Expect chaine.Occurrence(name, "Windows ") > 0, "le nom du système"
End Sub

Function YesOrNo(answer)
    YesOrNo = "non"
    If answer Then YesOrNo = "oui"
End Function

Sub ShowDisks()
    Dim code, disk, found, ofWindows
    ofWindows = Left(sys.SysRepertoires(1), 2)
    found = False
    WScript.Echo "Disques"
    For code = Asc("A") To Asc("Z")
        disk = Chr(code) & ":"
        If sys.SysDisqueType(disk) <> notThere Then Show disk, chaine.CBR(KindOf(disk), 20) & ReadyOrNot(disk)
        If UCase(ofWindows) = disk Then found = sys.IsDiskReady(disk & "\")
    Next
    Show "volume de " & ofWindows, VolumeOf(ofWindows)
    Show "chemin réseau", sys.UNCPathFromPath(ofWindows & "\")
    WScript.Echo ""
    Expect found, "le disque de Windows"
    Expect Not sys.IsDiskReady(ofWindows & "\dossier qui n'existe pas\"), "un dossier absent"
End Sub

Function KindOf(disk)
    Select Case sys.SysDisqueType(disk)
        Case removable: KindOf = "amovible"
        Case hardDisk: KindOf = "disque dur"
        Case network: KindOf = "réseau"
        Case compactDisc: KindOf = "CD-ROM"
        Case memory: KindOf = "disque virtuel"
        Case Else: KindOf = "inconnu"
    End Select
End Function

Function ReadyOrNot(disk)
    ReadyOrNot = "pas prêt"
    If sys.IsDiskReady(disk & "\") Then ReadyOrNot = "prêt"
End Function

' The number in its two halves, as Windows shows it.
Function VolumeOf(disk)
    Dim number, label
    number = sys.SysDisqueNumero(disk)
    label = sys.SysDisqueLabel(disk)
    If label = "" Then label = "sans nom"
    VolumeOf = label & ", numéro " & HalfOf(sys.HiWord(number)) & "-" & HalfOf(sys.LoWord(number))
    Expect sys.LoWord(sys.MakeLong(sys.LoWord(number), sys.HiWord(number))) = sys.LoWord(number), "les moitiés"
End Function

Function HalfOf(word)
    HalfOf = Right("000" & Hex(word), 4)
End Function

Sub ShowFolders()
    WScript.Echo "Dossiers"
    ShowFolder "Windows", sys.SysRepertoires(1)
    ShowFolder "système", sys.SysRepertoires(2)
    ShowFolder "temporaire", sys.SysRepertoires(3)
    ShowFolder "polices", sys.SysSpecialFolder(20)
    ShowFolder "programmes", sys.SysSpecialFolder(38)
    ShowFolder "documents", sys.SysSpecialFolder(5)
    ShowFolder "données", sys.SysSpecialFolder(26)
    WScript.Echo ""
    Expect sys.SysSpecialFolder(-1) = "", "un dossier sans numéro"
End Sub

Sub ShowFolder(name, folder)
    Show name, folder
    Expect Right(folder, 1) = "\" And files.FolderExists(folder), folder
End Sub

Sub ShowSettings()
    WScript.Echo "Réglages de l'utilisateur"
    Show "pays", sys.SysSymboleMonétaire(countryName)
    Show "langue", sys.SysSymboleMonétaire(languageName)
    Show "monnaie", sys.SysSymboleMonétaire(longSymbol) & ", " & sys.SysSymboleMonétaire(currencyDigits) & _
        " décimales"
    Show "séparateur décimal", sys.SysSymboleMonétaire(decimalSign)
    Show "date courte", sys.SysSymboleMonétaire(shortDate)
    Show "date longue", sys.SysSymboleMonétaire(longDate)
    Show "premier jour", sys.SysSymboleMonétaire(firstDay)
    Show "premier mois", sys.SysSymboleMonétaire(firstMonth)
    WScript.Echo ""
    Expect sys.SysSymboleMonétaire(firstMonth) = MonthName(1), "le premier mois"
    Expect Mid(CStr(0.5), 2, 1) = sys.SysSymboleMonétaire(14), "le séparateur décimal"
End Sub

' Programs are found through files that do not exist: each is made and removed by the question itself.
Sub ShowPrograms()
    Dim extension, folder, file, program
    folder = sys.SysRepertoires(3)
    WScript.Echo "Programmes associés"
    For Each extension In Array("ini", "rtf", "chm", "msi", "vbs", "sans association")
        file = folder & "rapport." & extension
        program = sys.SysFindAppliAssocié(file, False)
        If program = "" Then program = "aucun"
        Show extension, program
        Expect Not files.FileExists(file), file
    Next
    WScript.Echo ""
    Expect sys.SysFindAppliAssocié("", False) = "-1", "un fichier sans nom"
    Expect sys.SysShellAppliAssocié(folder & "fichier absent.txt", False) <= 32, "un fichier absent"
End Sub
