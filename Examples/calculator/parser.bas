' The grammar of the calculator's expressions; each rule is a method that evaluates what it reads.

Const DeepestNesting = 200

Class Parser

  Public Dim file As String
  Public Dim line As String
  Private Dim text As String
  Private Dim position As Integer
  Private Dim depth As Integer
  Private Dim levels As NSMutableArray
  Private Dim variables As NSMutableDictionary

  Sub Prepare(fileName As String)
    file = fileName
    ' Binary operators, from the loosest to the tightest.
    levels = Split("OrElse Or Xor,AndAlso And,<> <= >= = < >,Shl Shr,&,+ -,Mod,\,* /", ",")
    For i = 0 To levels.Count - 1
      levels(i) = Split(levels(i), " ")
    Next
    variables = New NSMutableDictionary
    variables("true") = True
    variables("false") = False
  End Sub

  ' The value of a line; "name = expression" also keeps it under that name.
  Function Evaluate(source As String, number As Integer) As Object
    text = source
    line = CString(number)
    position = 0
    depth = 0
    Dim name As String = TakeName()
    If Len(name) > 0 AndAlso TakeOperator("=") Then
      Dim result = ParseLevel(0)
      ExpectEnd()
      variables(LCase(name)) = result
      Return result
    End If
    position = 0
    Dim value = ParseLevel(0)
    ExpectEnd()
    Return value
  End Function

  Sub Fail(reason As String)
    RaiseSyntaxError(file, line, "column " & (position + 1) & ": " & reason)
  End Sub

  Function Peek() As String
    If position < Len(text) Then
      Return At(text, position)
    End If
    Return ""
  End Function

  Sub SkipBlanks()
    Do While Peek() = " " OrElse Peek() = Character(9)
      position = position + 1
    Loop
  End Sub

  Sub ExpectEnd()
    SkipBlanks()
    If position < Len(text) Then
      Fail("the end of the line or an operator expected")
    End If
  End Sub

  Sub Expect(sign As String)
    If TakeOperator(sign) = False Then
      Fail("'" & sign & "' expected")
    End If
  End Sub

  Function IsDigit(sign As String) As Boolean
    Return Contains("0123456789", sign, True)
  End Function

  Function IsNamePart(sign As String) As Boolean
    Return Len(sign) > 0 AndAlso (sign = "_" OrElse IsDigit(sign) OrElse LCase(sign) <> UCase(sign))
  End Function

  ' The name at the position, or an empty string; a name does not begin with a digit.
  Function TakeName() As String
    SkipBlanks()
    Dim start As Integer = position
    If IsDigit(Peek()) Then
      Return ""
    End If
    Do While IsNamePart(Peek())
      position = position + 1
    Loop
    Return Mid(text, start, position - start)
  End Function

  ' Goes past an operator if it is there. A word is no operator when it is the beginning of a longer one.
  Function TakeOperator(sign As String) As Boolean
    SkipBlanks()
    If StartsWith(Mid(text, position, -1), sign, False) = False Then
      Return False
    End If
    If IsNamePart(At(sign, 0)) AndAlso IsNamePart(Mid(text, position + Len(sign), 1)) Then
      Return False
    End If
    position = position + Len(sign)
    Return True
  End Function

  Sub Descend()
    depth = depth + 1
    If depth > DeepestNesting Then
      Fail("nested too deeply")
    End If
  End Sub

  Function ParseLevel(level As Integer) As Object
    If level = levels.Count Then
      Return ParseSigned()
    End If
    If level = 2 Then
      If TakeOperator("Not") Then
        Descend()
        Dim operands As NSMutableArray = New NSMutableArray
        operands.Append(ParseLevel(2))
        depth = depth - 1
        Return ApplyFunction("Not", operands, file, line)
      End If
    End If
    Dim result = ParseLevel(level + 1)
    Dim i As Integer = 0
    Do While i < levels(level).Count
      Dim operator As String = levels(level)(i)
      If TakeOperator(operator) Then
        Dim right = ParseLevel(level + 1)
        result = ApplyOperator(operator, result, right, file, line)
        i = 0
      Else
        i = i + 1
      End If
    Loop
    Return result
  End Function

  Function ParseSigned() As Object
    If TakeOperator("-") Then
      Descend()
      Dim operands As NSMutableArray = New NSMutableArray
      operands.Append(ParseSigned())
      depth = depth - 1
      Return ApplyFunction("-", operands, file, line)
    End If
    Return ParsePrimary()
  End Function

  Function ParsePrimary() As Object
    SkipBlanks()
    If TakeOperator("(") Then
      Descend()
      Dim inner = ParseLevel(0)
      depth = depth - 1
      Expect(")")
      Return inner
    End If
    If Peek() = Character(34) Then
      Return ParseString()
    End If
    If TakeOperator("&H") Then
      Return ParseHexadecimal()
    End If
    If IsDigit(Peek()) OrElse Peek() = "." Then
      Return ParseNumber()
    End If
    Dim start As Integer = position
    Dim name As String = TakeName()
    If Len(name) = 0 Then
      Fail("a value expected")
    End If
    If TakeOperator("(") Then
      Return ParseCall(name, start)
    End If
    If variables.Contains(LCase(name)) = False Then
      position = start
      Fail("there is no variable named " & name)
    End If
    Return variables(LCase(name))
  End Function

  Function ParseCall(name As String, start As Integer) As Object
    Dim wanted As Integer = ArgumentCount(name)
    If wanted < 0 Then
      position = start
      Fail("there is no function named " & name)
    End If
    Dim arguments As NSMutableArray = New NSMutableArray
    Descend()
    Do While arguments.Count < wanted
      If arguments.Count > 0 Then
        Expect(",")
      End If
      arguments.Append(ParseLevel(0))
    Loop
    depth = depth - 1
    Expect(")")
    Return ApplyFunction(name, arguments, file, line)
  End Function

  Sub TakeDigits()
    Do While IsDigit(Peek())
      position = position + 1
    Loop
  End Sub

  ' 12, 2.5 and 1e3 as the language writes them; "!" behind a number makes it a Single.
  Function ParseNumber() As Object
    Dim start As Integer = position
    TakeDigits()
    Dim floating As Boolean = Peek() = "."
    If floating Then
      position = position + 1
      TakeDigits()
    End If
    Dim mantissa As Integer = position
    If LCase(Peek()) = "e" Then
      position = position + 1
      If Peek() = "+" OrElse Peek() = "-" Then
        position = position + 1
      End If
      If IsDigit(Peek()) Then
        TakeDigits()
        floating = True
      Else
        position = mantissa
      End If
    End If
    Dim digits As String = Mid(text, start, position - start)
    If digits = "." Then
      Fail("a number expected")
    End If
    If Peek() = "!" Then
      position = position + 1
      Return CSingle(digits)
    End If
    If floating Then
      Return CDouble(digits)
    End If
    Return CInteger(digits)
  End Function

  Function ParseHexadecimal() As Integer
    Dim number As Integer = 0
    Dim start As Integer = position
    Do While InStr("0123456789ABCDEF", Peek(), 0, False) >= 0
      number = (number Shl 4) Or InStr("0123456789ABCDEF", Peek(), 0, False)
      position = position + 1
    Loop
    If position = start Then
      Fail("a hexadecimal digit expected")
    End If
    Return number
  End Function

  ' A string in double quotes; two of them inside stand for one.
  Function ParseString() As String
    Dim result As String = ""
    Do While Peek() = Character(34)
      Dim close As Integer = InStr(text, Character(34), position + 1, True)
      If close < 0 Then
        Fail("the string has no end")
      End If
      result = result & Mid(text, position + 1, close - position - 1)
      position = close + 1
      If Peek() = Character(34) Then
        result = result & Character(34)
      End If
    Loop
    Return result
  End Function

End Class
