' Sorts the files of a folder by what their names announce, with their sizes in words.
'
'     cscript //nologo files.vbs folder
'
' makes a folder "bureau" of files in there first. Ends with 0 when every file was found once, with its length.
' This file is text of Windows-1252, as script hosts read it.
Option Explicit

Const forWriting = 2
Const efFileName = 2, efExtension = 3
Const picture = 0, sound = 1, video = 2, archive = 3, other = 5

Dim chaine, fichier, files, folder, lengths, found, agreed

Set chaine = CreateObject("Vorla6.VorlaChaine")
Set fichier = CreateObject("Vorla6.VorlaFichier")
Set files = CreateObject("Scripting.FileSystemObject")
Set lengths = CreateObject("Scripting.Dictionary")

folder = fichier.NormalisePath(WScript.Arguments(0)) & "bureau"
MakeFiles
found = 0
agreed = True
ShowKind "Images", picture
ShowKind "Sons", sound
ShowKind "Films", video
ShowKind "Archives", archive
ShowKind "Autres", other
If agreed And found = lengths.Count Then
    WScript.Echo "fichiers classés"
    WScript.Quit 0
End If
WScript.Echo "DÉSACCORD"
WScript.Quit 1

Sub MakeFiles()
    If files.FolderExists(folder) Then files.DeleteFolder folder, True
    files.CreateFolder folder
    MakeFile "façade.PNG", 48211
    MakeFile "logo.ico", 1024
    MakeFile "plan du rez-de-chaussée.tif", 2097152
    MakeFile "attente.wav", 1536
    MakeFile "annonce.mp3", 700001
    MakeFile "visite.mpeg", 3145729
    MakeFile "sauvegarde.2026.zip", 1572864
    MakeFile "polices.cab", 20480
    MakeFile "devis.doc", 1025
    MakeFile "archive.tar.gz", 5000
    MakeFile "LISEZMOI", 0
    MakeFile "notes.txt", 1
End Sub

Sub MakeFile(name, length)
    Dim stream
    Set stream = files.CreateTextFile(folder & "\" & name, True)
    stream.Write String(length, "v")
    stream.Close
    lengths.Add name, length
End Sub

Sub ShowKind(title, kind)
    Dim file
    WScript.Echo title
    For Each file In files.GetFolder(folder).Files
        If fichier.FileType(file.Path) = kind Then ShowFile file.Path
    Next
    WScript.Echo ""
End Sub

Sub ShowFile(path)
    Dim name
    name = fichier.ExtraitChemin(path, efFileName)
    found = found + 1
    If Not fichier.FileExist(path) Or fichier.FileSize(path) <> fichier.SizeToString(lengths(name)) Then agreed = False
    WScript.Echo "  " & chaine.CBR(name, 30) & chaine.CBR(fichier.ExtraitChemin(path, efExtension), 6) & _
        chaine.CBL(fichier.FileSize(path, True), 14) & "   " & fichier.FileSize(path)
End Sub
