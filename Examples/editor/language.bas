' What the editor knows of the language itself: its words, its built-ins with their arguments, its classes with their members.

Class Language
  Public Dim keywords As NSMutableArray = New NSMutableArray
  Public Dim builtins As NSMutableArray = New NSMutableArray
  Public Dim types As NSMutableArray = New NSMutableArray
  Public Dim functions As NSMutableDictionary = New NSMutableDictionary
  Public Dim members As NSMutableDictionary = New NSMutableDictionary

  ' Reads the lists of a folder.
  Sub Read(folder As String)
    keywords = LinesOf(folder & "/keywords.txt")
    builtins = LinesOf(folder & "/builtins.txt")
    types = LinesOf(folder & "/types.txt")
    Dim lines As NSMutableArray = LinesOf(folder & "/signatures.txt")
    For i = 0 To lines.Count - 1
      Dim declared As Declaration = New Declaration
      declared.Read(lines(i))
      functions(LCase(declared.name)) = declared
    Next
    lines = LinesOf(folder & "/members.txt")
    For i = 0 To lines.Count - 1
      ReadMember(lines(i))
    Next
  End Sub

  ' "Class.Name(arguments) As Type"
  Sub ReadMember(line As String)
    Dim owner As String = FirstWord(line)
    Dim declared As Declaration = New Declaration
    declared.Read(Mid(line, Len(owner) + 1, -1))
    declared.owner = owner
    If Not members.Contains(LCase(owner)) Then members(LCase(owner)) = New NSMutableArray
    members(LCase(owner)).Append(declared)
  End Sub

  ' The lines of a file that hold something.
  Function LinesOf(path As String) As NSMutableArray
    Dim found As NSMutableArray = New NSMutableArray
    Dim lines As NSMutableArray = Split(ReadString(path), Character(10))
    For i = 0 To lines.Count - 1
      If Trim(lines(i)) <> "" Then found.Append(Trim(lines(i)))
    Next
    Return found
  End Function

  ' The members of a class of the language; none for any other name.
  Function MembersOf(className As String) As NSMutableArray
    If Not members.Contains(LCase(className)) Then Return New NSMutableArray
    Return members(LCase(className))
  End Function

  ' A built-in by its name; Nil when there is none.
  Function Builtin(name As String) As Declaration
    If Not functions.Contains(LCase(name)) Then Return Nil
    Return functions(LCase(name))
  End Function
End Class
