' The editor: editor [FILE...]. Without files it shows the programs that come with it.

' What to show at first: the programs that come with the editor, unless files were named. Those the application opens
' itself; what is no file is opened here, so that somebody hears of it.
Function FilesAtFirst() As NSMutableArray
  Dim paths As NSMutableArray = New NSMutableArray
  Dim arguments As NSArray = NSProcessInfo.Arguments()
  Dim named As Boolean = False
  For i = 1 To arguments.Count - 1
    If Not StartsWith(arguments(i), "-", True) Then
      named = True
      If Not NSFileManager.Exists(arguments(i)) Then paths.Append(arguments(i))
    End If
  Next
  If named Then Return paths
  Dim folder As String = FilePath(NSBundle.ExecutablePath()) & "/programs/"
  paths.Append(folder & "ledger.bas")
  paths.Append(folder & "maze.bas")
  Return paths
End Function

Sub Main
  Dim shown As SourceEditor = New SourceEditor
  Property(Application, "delegate", shown)
  Property(Application, "mainMenu", MainMenu(shown))
  shown.Open(NSBundle.ResourcePath(), FilesAtFirst())
End Sub
