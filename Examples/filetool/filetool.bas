' Lists, checks, makes, copies, moves, links and removes files: filetool COMMAND PATH...

Sub Usage()
  PrintError "filetool list FOLDER | check PATH... | make FOLDER | copy FROM TO | move FROM TO | link FROM TO | remove PATH..."
End Sub

Function KindOf(files As NSFileManager, path As String) As String
  If files.ExistsDirectory(path) Then
    Return "folder"
  ElseIf files.ExistsFile(path) Then
    Return "file"
  End If
  Return "missing"
End Function

Function Flag(holds As Boolean, letter As String) As String
  If holds Then
    Return letter
  End If
  Return "-"
End Function

Function Describe(files As NSFileManager, path As String, name As String) As String
  Dim rights As String = Flag(files.IsReadable(path), "r") & Flag(files.IsWritable(path), "w") & Flag(files.IsExecutable(path), "x") & Flag(files.IsDeletable(path), "d")
  Return Left(KindOf(files, path) & Space(8, " "), 8) & rights & "  " & name
End Function

Sub SortNames(names As NSMutableArray)
  For i = 1 To names.Count - 1
    Dim name As String = names(i)
    Dim place As Integer = i
    Do While place > 0 AndAlso Compare(names(Max(place - 1, 0)), name, True) > 0
      names.Replace(names(place - 1), place)
      place = place - 1
    Loop
    names.Replace(name, place)
  Next
End Sub

Function List(files As NSFileManager, path As String) As Boolean
  Dim found = files.List(path)
  If found = Nil Then
    PrintError "filetool: cannot list " & path & ": " & WhyNotListed(files, path)
    Return False
  End If
  Dim names As NSMutableArray = New NSMutableArray
  For i = 0 To found.Count - 1
    names.Append(found(i))
  Next
  SortNames(names)
  For i = 0 To names.Count - 1
    Print Describe(files, path & "/" & names(i), names(i))
  Next
  Print names.Count & " entries"
  Return True
End Function

Function WhyNotListed(files As NSFileManager, path As String) As String
  If Not files.Exists(path) Then
    Return "there is nothing of that name"
  ElseIf files.ExistsFile(path) Then
    Return "it is not a folder"
  End If
  Return "it may not be read"
End Function

Function FolderOf(path As String) As String
  Dim parts As NSMutableArray = Split(path, "/")
  parts.Remove(parts.Count - 1)
  Dim folder As String = Join(parts, "/")
  If folder = "" Then
    Return "/"
  End If
  Return folder
End Function

Function WhyNot(files As NSFileManager, source As String, target As String) As String
  If source <> "" AndAlso Not files.Exists(source) Then
    Return "there is no " & source
  ElseIf target = "" Then
    Return "it may not be deleted"
  ElseIf files.Exists(target) Then
    Return target & " is there already"
  ElseIf Not files.ExistsDirectory(FolderOf(target)) Then
    Return "there is no folder " & FolderOf(target)
  ElseIf Not files.IsWritable(FolderOf(target)) Then
    Return "nothing may be written in " & FolderOf(target)
  End If
  Return "the system refused it"
End Function

Function Report(done As Boolean, what As String, files As NSFileManager, source As String, target As String) As Boolean
  If done Then
    Print what
  Else
    PrintError "filetool: not " & what & ": " & WhyNot(files, source, target)
  End If
  Return done
End Function

Function RunCommand(files As NSFileManager, command As String, paths As NSMutableArray) As Boolean
  Dim success As Boolean = True
  Select Case command
  Case "list"
    Return List(files, paths(0))
  Case "copy"
    Return Report(files.Copy(paths(0), paths(1)), "copied " & paths(0) & " to " & paths(1), files, paths(0), paths(1))
  Case "move"
    Return Report(files.Move(paths(0), paths(1)), "moved " & paths(0) & " to " & paths(1), files, paths(0), paths(1))
  Case "link"
    Return Report(files.Link(paths(0), paths(1)), "linked " & paths(0) & " to " & paths(1), files, paths(0), paths(1))
  Case "make"
    Return Report(files.CreateDirectory(paths(0)), "made " & paths(0), files, "", paths(0))
  Case "remove"
    For i = 0 To paths.Count - 1
      If Not Report(files.Delete(paths(i)), "removed " & paths(i), files, paths(i), "") Then
        success = False
      End If
    Next
  Case "check"
    For i = 0 To paths.Count - 1
      Print Describe(files, paths(i), paths(i))
      If Not files.Exists(paths(i)) Then
        success = False
      End If
    Next
  End Select
  Return success
End Function

Function Main(arguments As NSMutableArray) As Integer
  Dim files As NSFileManager = NSFileManager()
  If arguments.Count = 0 Then
    arguments.Append("list")
    arguments.Append(EXAMPLE_FOLDER)
  End If
  Dim command As String = arguments(0)
  Dim wanted As NSMutableDictionary = New NSMutableDictionary
  wanted("list") = 1
  wanted("check") = 1
  wanted("make") = 1
  wanted("remove") = 1
  wanted("copy") = 2
  wanted("move") = 2
  wanted("link") = 2
  Dim needed As Integer = 0
  If wanted.Contains(command) Then
    needed = wanted(command)
  End If
  If needed = 0 OrElse arguments.Count - 1 < needed Then
    Usage()
    Return 2
  End If
  Dim paths As NSMutableArray = New NSMutableArray
  For i = 1 To arguments.Count - 1
    paths.Append(Location(arguments(i)))
  Next
  If RunCommand(files, command, paths) Then
    Return 0
  End If
  Return 1
End Function
