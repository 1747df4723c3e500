' Keeps the choices of a program's user between two runs, in the registry and in an INI file, and shows both. Of
' those in the registry it removes every trace at its end.
'
'     cscript //nologo settings.vbs folder
'
' makes settings.ini in the folder anew.
' Ends with 0 when every choice was read back as it had been made.
' This file is text of Windows-1252, as script hosts read it.
Option Explicit

Const HKEY_CURRENT_USER = &H80000001
Const REG_STRING = 1, REG_DWORD = 4
Const key = "Software\Exemple des réglages"

Dim chaine, disagreements

Set chaine = CreateObject("Vorla6.VorlaChaine")
disagreements = 0
ChoicesInRegistry
ChoicesInFile
If disagreements = 0 Then
    WScript.Echo "réglages relus"
    WScript.Quit 0
End If
WScript.Echo "DÉSACCORD"
WScript.Quit 1

' One line for each choice; what is not as it was made is counted.
Sub Show(name, read, made)
    Dim verdict
    verdict = ""
    If TypeName(read) <> TypeName(made) Or read <> made Then
        verdict = "  au lieu de " & TypeName(made) & " " & made
        disagreements = disagreements + 1
    End If
    WScript.Echo "  " & chaine.CBR(name, 28) & chaine.CBR(TypeName(read), 9) & read & verdict
End Sub

' --- choices in the registry ---

' What lists add their names to: all that they ask of a collection is Add.
Class NameList
    Public names
    Public text

    Private Sub Class_Initialize()
        Set names = CreateObject("Scripting.Dictionary")
    End Sub

    Public Sub Add(name)
        If names.Count > 0 Then text = text & ", "
        text = text & name
        names.Add names.Count, name
    End Sub
End Class

Sub ChoicesInRegistry()
    Dim registre
    Set registre = CreateObject("Vorla6.VorlaRegistre")
    ' A new object looks below HKEY_LOCAL_MACHINE; choices are each user's own.
    registre.RegClePrimaire = HKEY_CURRENT_USER
    ' What a run that was interrupted may have left.
    If registre.RegExisteClé(key) Then RemoveKey registre, key
    WScript.Echo "HKEY_CURRENT_USER\" & key
    FirstRun registre
    SecondRun registre
    RemoveKey registre, key
    Show "clé effacée", Not registre.RegExisteClé(key), True
    WScript.Echo ""
End Sub

' Nothing is stored yet: the program's own choices show, and are kept.
Sub FirstRun(registre)
    Dim saved
    WScript.Echo "premier lancement"
    Show "Titre", Choice(registre, key, "Titre", "(sans titre)"), "(sans titre)"
    Show "Fenêtre\Largeur", Choice(registre, key & "\Fenêtre", "Largeur", 640), 640
    ' The first choice makes the key; blanks around a text are not kept.
    saved = registre.RegEcritValeur(key, "Titre", "  Facturation de l'été  ", REG_STRING)
    saved = registre.RegEcritValeur(key, "Dossier", "C:\Données\2026", REG_STRING) And saved
    saved = registre.RegEcritValeur(key, "Aperçu", True, REG_DWORD) And saved
    saved = registre.RegEcritValeur(key & "\Fenêtre", "Gauche", -8, REG_DWORD) And saved
    saved = registre.RegEcritValeur(key & "\Fenêtre", "Largeur", 800, REG_DWORD) And saved
    saved = registre.RegEcritValeur(key & "\Récents", "1", "devis.txt", REG_STRING) And saved
    saved = registre.RegEcritValeur(key & "\Récents", "2", "facture.txt", REG_STRING) And saved
    Show "réglages écrits", saved, True
    ' A choice that is not a number is refused, and the old one stays.
    Show "largeur refusée", Not registre.RegEcritValeur(key & "\Fenêtre", "Largeur", "étroite", REG_DWORD), True
    ' If keys may not be created, nothing is written to a missing one.
    Show "clé refusée", Not registre.RegEcritValeur(key & "\Autre", "x", "y", REG_STRING, False), True
End Sub

' Another run of the program, with an object of its own.
Sub SecondRun(first)
    Dim registre
    Set registre = CreateObject("Vorla6.VorlaRegistre")
    registre.RegClePrimaire = first.RegClePrimaire
    WScript.Echo "deuxième lancement"
    Show "Titre", Choice(registre, key, "Titre", "(sans titre)"), "Facturation de l'été"
    Show "Dossier", Choice(registre, "\" & key, "Dossier", "C:\"), "C:\Données\2026"
    Show "Aperçu", CBool(Choice(registre, key, "Aperçu", 0)), True
    Show "Fenêtre\Gauche", CLng(Choice(registre, key & "\Fenêtre", "Gauche", 0)), CLng(-8)
    Show "Fenêtre\Largeur", CLng(Choice(registre, key & "\Fenêtre", "Largeur", 640)), CLng(800)
    Show "sections", KeysIn(registre, key).text, "Fenêtre, Récents"
    Show "documents récents", ValuesIn(registre, key & "\Récents").names.Count, CLng(2)
    ' One document has been removed.
    Show "document oublié", registre.RegEffaceValeur(key & "\Récents", "1"), True
    Show "documents récents", ValuesIn(registre, key & "\Récents").text, "2"
    Show "document 1", registre.RegExisteValeur(key & "\Récents", "1"), False
End Sub

' What is stored, or what the program takes when nothing is.
Function Choice(registre, path, name, otherwise)
    Choice = registre.RegLitValeur(path, name)
    If IsEmpty(Choice) Then Choice = otherwise
End Function

Function KeysIn(registre, path)
    Dim list
    Set list = New NameList
    registre.RegLireCles path, list
    Set KeysIn = list
End Function

Function ValuesIn(registre, path)
    Dim list
    Set list = New NameList
    registre.RegLireValeurs path, list
    Set ValuesIn = list
End Function

' Windows deletes no key that has others below it: those go first.
Sub RemoveKey(registre, path)
    Dim name
    For Each name In KeysIn(registre, path).names.Items
        RemoveKey registre, path & "\" & name
    Next
    registre.RegSupprimeCle path
End Sub

' --- choices in an INI file ---

Sub ChoicesInFile()
    Dim sys, file, files
    Set sys = CreateObject("Vorla6.VorlaSystem")
    Set files = CreateObject("Scripting.FileSystemObject")
    file = files.BuildPath(WScript.Arguments(0), "settings.ini")
    If files.FileExists(file) Then files.DeleteFile file
    WScript.Echo "settings.ini"
    WScript.Echo "premier lancement"
    Show "Fenêtre, Largeur", sys.IniLit(file, "Fenêtre", "Largeur", "640"), "640"
    Show "réglages écrits", WriteChoices(sys, file), True
    WScript.Echo "deuxième lancement"
    Show "Général, Titre", sys.IniLit(file, "Général", "Titre", "(sans titre)"), "Facturation de l'été"
    Show "général, TITRE", sys.IniLit(file, "Général", "TITRE"), "Facturation de l'été"
    Show "Fenêtre, Largeur", sys.IniLit(file, "Fenêtre", "Largeur", "640"), "800"
    ' An empty value takes its key out; a key that begins like a comment is never written.
    Show "Général, Dossier oublié", sys.IniEcrit(file, "Général", "Dossier") <> 0, True
    Show "Général, Dossier", sys.IniLit(file, "Général", "Dossier", "C:\"), "C:\"
    sys.IniEcrit file, "Général", ";Essai", "oui"
    Show "Général, ;Essai", sys.IniLit(file, "Général", ";Essai"), ""
    ' An empty key takes the whole section out.
    Show "Récents oubliés", sys.IniEcrit(file, "Récents", "") <> 0, True
    Show "Récents, 1", sys.IniLit(file, "Récents", "1", "(aucun)"), "(aucun)"
    WScript.Echo "le fichier"
    ShowFile files, file
    WScript.Echo ""
End Sub

Function WriteChoices(sys, file)
    WriteChoices = sys.IniEcrit(file, "Général", "Titre", "Facturation de l'été") <> 0
    WriteChoices = sys.IniEcrit(file, "Général", "Dossier", "C:\Données\2026") <> 0 And WriteChoices
    WriteChoices = sys.IniEcrit(file, "Général", "Devise", "EUR") <> 0 And WriteChoices
    WriteChoices = sys.IniEcrit(file, "Fenêtre", "Largeur", "800") <> 0 And WriteChoices
    WriteChoices = sys.IniEcrit(file, "Récents", "1", "devis.txt") <> 0 And WriteChoices
End Function

Sub ShowFile(files, file)
    Const forReading = 1
    Dim stream
    Set stream = files.OpenTextFile(file, forReading)
    Do Until stream.AtEndOfStream
        WScript.Echo "  " & stream.ReadLine
    Loop
    stream.Close
End Sub
