' The editor: editor [FILE...]. Without files it shows the programs that come with it.

' The files of the command line; a relative path begins in the working folder.
Function FilesAsked() As NSMutableArray
  Dim paths As NSMutableArray = New NSMutableArray
  Dim arguments As NSArray = NSProcessInfo.Arguments()
  Dim files As NSFileManager = New NSFileManager
  For i = 1 To arguments.Count - 1
    Dim path As String = arguments(i)
    If Not StartsWith(path, "/", True) AndAlso Not StartsWith(path, "--", True) Then path = files.Path & "/" & path
    If StartsWith(path, "/", True) Then paths.Append(path)
  Next
  If paths.Count = 0 Then
    Dim folder As String = FilePath(NSBundle.ExecutablePath()) & "/programs/"
    paths.Append(folder & "ledger.bas")
    paths.Append(folder & "maze.bas")
  End If
  Return paths
End Function

Sub Main
  Dim shown As SourceEditor = New SourceEditor
  Property(Application, "delegate", shown)
  Property(Application, "mainMenu", MainMenu(shown))
  shown.Open(NSBundle.ResourcePath(), FilesAsked())
End Sub
