' The names that a source declares, read line by line: what completion offers beside the language itself.

Class Declaration
  Public Dim name As String = ""
  Public Dim parameters As String = ""
  Public Dim typeName As String = ""
  Public Dim kind As String = ""
  Public Dim owner As String = ""
  Public Dim parent As String = ""
  Public Dim firstLine As Integer = 0
  Public Dim lastLine As Integer = 0

  ' Reads "Name", "Name As Type" and "Name(a As Integer, b) As Type".
  Sub Read(text As String)
    name = FirstWord(text)
    Dim rest As String = Trim(Mid(text, Len(name), -1))
    If StartsWith(rest, "(", True) Then
      Dim close As Integer = InStr(rest, ")", 0, True)
      If close < 0 Then close = Len(rest) - 1
      parameters = Left(rest, close + 1)
      rest = Trim(Mid(rest, close + 1, -1))
    End If
    If Not StartsWith(rest, "as ", False) Then Return
    rest = Trim(Mid(rest, 3, -1))
    If StartsWith(rest, "new ", False) Then rest = Trim(Mid(rest, 4, -1))
    typeName = FirstWord(rest)
  End Sub

  ' What a list offers.
  Function Choice() As String
    Return name & parameters
  End Function

  ' What is shown while the arguments are typed.
  Function Signature() As String
    If typeName = "" Then Return name & parameters
    Return name & parameters & " As " & typeName
  End Function
End Class

Class Declarations
  Public Dim all As NSMutableArray = New NSMutableArray
  Public Dim classNow As Declaration
  Public Dim routineNow As Declaration

  Sub Read(text As String)
    all = New NSMutableArray
    classNow = Nil
    routineNow = Nil
    Dim lines As NSMutableArray = Split(text, Character(10))
    For i = 0 To lines.Count - 1
      ReadLine(Trim(WithoutComment(Replace(lines(i), Character(13), "", True))), i + 1)
    Next
  End Sub

  Sub ReadLine(line As String, number As Integer)
    Dim word As String = LCase(FirstWord(line))
    If word = "" Then Return
    Dim rest As String = Trim(Mid(line, Len(word), -1))
    If word = "public" OrElse word = "private" OrElse word = "shared" Then
      ReadLine(rest, number)
    ElseIf word = "class" Then
      BeginClass(rest, number)
    ElseIf word = "end" Then
      EndBlock(LCase(FirstWord(rest)), number)
    ElseIf BeginsRoutine(word) Then
      BeginRoutine(rest, number)
    ElseIf word = "dim" OrElse word = "const" Then
      ReadVariables(rest, number)
    ElseIf word = "for" OrElse word = "catch" Then
      If StartsWith(rest, "each ", False) Then rest = Trim(Mid(rest, 5, -1))
      If FirstWord(rest) <> "" Then AddVariable(rest, number)
    End If
  End Sub

  Function BeginsRoutine(word As String) As Boolean
    Return Contains(" sub function action ibaction iboutlet property event delegate ", " " & word & " ", True)
  End Function

  Sub BeginClass(rest As String, number As Integer)
    Dim declared As Declaration = New Declaration
    declared.Read(rest)
    declared.kind = "class"
    declared.firstLine = number
    declared.lastLine = 2147483647
    Dim marker As Integer = InStr(rest, " inherits ", 0, False)
    If marker >= 0 Then declared.parent = FirstWord(Trim(Mid(rest, marker + 10, -1)))
    all.Append(declared)
    classNow = declared
    routineNow = Nil
  End Sub

  Sub BeginRoutine(rest As String, number As Integer)
    Dim declared As Declaration = New Declaration
    declared.Read(rest)
    If declared.name = "" Then Return
    If declared.parameters = "" Then declared.parameters = "()"
    declared.kind = "routine"
    declared.firstLine = number
    declared.lastLine = 2147483647
    If classNow <> Nil Then declared.owner = classNow.name
    all.Append(declared)
    routineNow = declared
    AddVariables(Mid(declared.parameters, 1, Len(declared.parameters) - 2), number)
  End Sub

  Sub EndBlock(word As String, number As Integer)
    If word = "class" AndAlso classNow <> Nil Then
      classNow.lastLine = number
      classNow = Nil
      routineNow = Nil
    ElseIf BeginsRoutine(word) AndAlso routineNow <> Nil Then
      routineNow.lastLine = number
      routineNow = Nil
    End If
  End Sub

  ' A value that is given at once may hold commas of its own.
  Sub ReadVariables(text As String, number As Integer)
    Dim equals As Integer = InStr(text, "=", 0, True)
    If equals >= 0 Then text = Left(text, equals)
    AddVariables(text, number)
  End Sub

  ' Several names may stand in a row.
  Sub AddVariables(text As String, number As Integer)
    Dim pieces As NSMutableArray = Split(text, ",")
    For i = 0 To pieces.Count - 1
      AddVariable(Trim(pieces(i)), number)
    Next
  End Sub

  Sub AddVariable(text As String, number As Integer)
    Dim word As String = LCase(FirstWord(text))
    If word = "byval" OrElse word = "byref" OrElse word = "optional" Then text = Trim(Mid(text, Len(word), -1))
    Dim declared As Declaration = New Declaration
    declared.Read(text)
    If declared.name = "" Then Return
    declared.parameters = ""
    declared.kind = "variable"
    declared.firstLine = number
    If routineNow <> Nil Then
      declared.parent = routineNow.name
      declared.firstLine = routineNow.firstLine
    ElseIf classNow <> Nil Then
      declared.owner = classNow.name
    End If
    all.Append(declared)
  End Sub

  ' The class or routine of which a line is part; Nil outside.
  Function Around(kind As String, line As Integer) As Declaration
    Dim found As Declaration = Nil
    For i = 0 To all.Count - 1
      Dim declared As Declaration = all(i)
      If declared.kind = kind AndAlso declared.firstLine <= line AndAlso line <= declared.lastLine Then found = declared
    Next
    Return found
  End Function

  ' What may be named in a line without saying whose it is: of its routine, its class and the whole source.
  Function VisibleIn(line As Integer) As NSMutableArray
    Dim found As NSMutableArray = New NSMutableArray
    Dim routine As Declaration = Around("routine", line)
    Dim within As Declaration = Around("class", line)
    For i = 0 To all.Count - 1
      Dim declared As Declaration = all(i)
      Dim seen As Boolean = declared.owner = ""
      If declared.kind = "variable" AndAlso declared.parent <> "" Then
        seen = False
        If routine <> Nil Then seen = declared.firstLine = routine.firstLine
      ElseIf within <> Nil Then
        If declared.owner = within.name Then seen = True
      End If
      If seen Then found.Append(declared)
    Next
    Return found
  End Function

  ' The nearest declaration of a name that a line can mean, whatever its letters' case.
  Function Named(name As String, line As Integer) As Declaration
    Dim seen As NSMutableArray = VisibleIn(line)
    Dim found As Declaration = Nil
    Dim nearest As Integer = -1
    For i = 0 To seen.Count - 1
      Dim declared As Declaration = seen(i)
      If LCase(declared.name) = LCase(name) Then
        Dim nearness As Integer = 0
        If declared.owner <> "" Then nearness = 1
        If declared.kind = "variable" AndAlso declared.parent <> "" Then nearness = 2
        If nearness > nearest Then
          found = declared
          nearest = nearness
        End If
      End If
    Next
    Return found
  End Function

  ' What belongs to a class of the source: its own, not what its routines declare within.
  Function MembersOf(className As String) As NSMutableArray
    Dim found As NSMutableArray = New NSMutableArray
    For i = 0 To all.Count - 1
      Dim declared As Declaration = all(i)
      If declared.owner <> "" AndAlso LCase(declared.owner) = LCase(className) Then found.Append(declared)
    Next
    Return found
  End Function

  ' The class of that name that the source declares; Nil when it declares none.
  Function ClassNamed(className As String) As Declaration
    For i = 0 To all.Count - 1
      Dim declared As Declaration = all(i)
      If declared.kind = "class" AndAlso LCase(declared.name) = LCase(className) Then Return declared
    Next
    Return Nil
  End Function
End Class
