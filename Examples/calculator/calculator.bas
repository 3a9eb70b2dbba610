' Evaluates expressions line by line: calculator [FILE]

Function Shown(value As Object) As String
  If IsString(value) Then
    Return Character(34) & value & Character(34)
  End If
  Return Info(value)
End Function

Function EvaluateLine(parser As Parser, source As String, number As Integer) As Boolean
  Dim text As String = Replace(source, Character(13), "", True)
  Dim expression As String = Trim(text)
  If Len(expression) = 0 OrElse StartsWith(expression, "'", True) Then
    Return True
  End If
  Try
    Dim value = parser.Evaluate(text, number)
    Print expression & " → " & Shown(value) & " (" & TypeName(value) & ")"
  Catch failure
    ReportFailure(failure)
    Return False
  End Try
  Return True
End Function

Function EvaluateFile(path As String) As Boolean
  Dim lines As NSMutableArray = Split(ReadString(Location(path)), Character(10))
  Dim parser As Parser = New Parser
  parser.Prepare(FileName(path))
  Dim good As Boolean = True
  For i = 0 To lines.Count - 1
    If EvaluateLine(parser, lines(i), i + 1) = False Then
      good = False
    End If
  Next
  Return good
End Function

Function EvaluateInput() As Boolean
  Dim parser As Parser = New Parser
  parser.Prepare("input")
  Dim good As Boolean = True
  Dim number As Integer = 1
  Dim source As String = ReadLine()
  Do While source <> Nil
    If EvaluateLine(parser, source, number) = False Then
      good = False
    End If
    number = number + 1
    source = ReadLine()
  Loop
  Return good
End Function

Function Main(arguments As NSMutableArray) As Integer
  Dim good As Boolean = True
  Try
    If arguments.Count > 0 Then
      good = EvaluateFile(arguments(0))
    Else
      good = EvaluateInput()
    End If
  Catch failure
    PrintError "calculator: " & arguments(0) & ": " & failure.Reason
    Return 1
  End Try
  If good Then
    Return 0
  End If
  Return 1
End Function
