' Builds the sources of a folder with the toolchain's four steps and shows their diagnostics: builder [FOLDER]
' The steps are scripts in the folder "Compiler" beside the program.

Class Builder
  Public Dim folder As String
  Public Dim failures As Integer = 0

  Function Step(title As String, diagnostics As String) As Boolean
    If Len(diagnostics) = 0 Then
      Print title & ": ok"
      Return True
    End If
    failures = failures + 1
    Print title & ": failed"
    Dim lines As NSMutableArray = Split(diagnostics, Character(10))
    For i = 0 To lines.Count - 1
      If Len(lines(i)) > 0 Then
        Print "  " & lines(i)
      End If
    Next
    Return False
  End Function

  Function Paths(name As String, suffix As String) As NSMutableArray
    Dim list As NSMutableArray = New NSMutableArray
    list.Append(folder & "/" & name & ".bas")
    list.Append(folder & "/build/" & name & suffix)
    Return list
  End Function

  Sub BuildSource(name As String)
    If Not Step(name & " translate", VeltRunVeltCompile(Paths(name, ".c"))) Then
      Return
    End If
    If Not Step(name & " header", VeltRunObjcHeader(Paths(name, ".h"))) Then
      Return
    End If
    Step(name & " compile", VeltRunObjcCompile(Paths(name, ".o")))
  End Sub

  Function Build As Integer
    Dim files As NSMutableArray = Split(Bash("cd ""$0"" && mkdir -p build && ls *.bas", FolderArgument()), Character(10))
    For i = 0 To files.Count - 1
      If EndsWith(files(i), ".bas", True) Then
        BuildSource(Left(files(i), Len(files(i)) - 4))
      End If
    Next
    If failures = 0 Then
      Step("link", VeltRunObjcLinker(FolderArgument()))
    End If
    Return failures
  End Function

  Function FolderArgument As NSMutableArray
    Dim list As NSMutableArray = New NSMutableArray
    list.Append(folder)
    Return list
  End Function
End Class

Function Main(arguments As NSMutableArray) As Integer
  Dim builder As Builder = New Builder
  builder.folder = ExampleFolder & "/Source"
  If arguments.Count > 0 Then
    builder.folder = Location(arguments(0))
  End If
  Print "Toolchain in " & VeltBinaryPath() & "/Compiler for " & Arch()
  If builder.Build() > 0 Then
    Print builder.failures & " failed"
    Return 1
  End If
  Print "Built " & builder.folder & "/build/program"
  Return 0
End Function
