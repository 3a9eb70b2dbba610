' What is offered while somebody types: names and arguments, from the language and from the source itself.

' Stands for every name, where the editor asks for members.
Const EveryName = "!§$%&/()=?"

Class Assistant
  Public Dim language As Language
  Public Dim source As Declarations = New Declarations

  ' The names that fit behind an expression and a dot in a line, each with its arguments.
  Function Choices(expression As String, line As Integer) As NSMutableArray
    If expression = EveryName Then Return AllNames(line)
    Dim members As NSMutableArray = MembersOf(TypeOf(expression, line))
    Dim found As NSMutableArray = New NSMutableArray
    For i = 0 To members.Count - 1
      found.Append(members(i).Choice())
    Next
    Return found
  End Function

  ' What a line may begin with or name: the source's names, the built-ins, the types and the keywords.
  Function AllNames(line As Integer) As NSMutableArray
    Dim found As NSMutableArray = New NSMutableArray
    Dim seen As NSMutableArray = source.VisibleIn(line)
    For i = 0 To seen.Count - 1
      found.Append(seen(i).Choice())
    Next
    For i = 0 To language.builtins.Count - 1
      Dim builtin As Declaration = language.Builtin(language.builtins(i))
      If builtin <> Nil Then found.Append(builtin.Choice())
    Next
    AppendAll(found, language.types)
    AppendAll(found, language.keywords)
    Return found
  End Function

  Sub AppendAll(list As NSMutableArray, added As NSMutableArray)
    For i = 0 To added.Count - 1
      list.Append(added(i))
    Next
  End Sub

  Sub AppendClasses(list As NSMutableArray)
    For i = 0 To source.all.Count - 1
      If source.all(i).kind = "class" Then list.Append(source.all(i).name)
    Next
  End Sub

  ' How what an expression names is called; empty when nobody knows.
  Function Signature(expression As String, line As Integer) As String
    Dim declared As Declaration = Meant(expression, line)
    If declared = Nil Then Return ""
    If declared.parameters = "" Then Return ""
    Return declared.Signature()
  End Function

  ' The declaration that the last name of an expression such as "book.notes(1).Title" means in a line.
  Function Meant(expression As String, line As Integer) As Declaration
    Dim dot As Integer = LastDot(expression)
    Dim name As String = FirstWord(Mid(expression, dot + 1, -1))
    If name = "" Then Return Nil
    If dot >= 0 Then Return MemberNamed(name, TypeOf(Left(expression, dot), line))
    Dim declared As Declaration = source.Named(name, line)
    If declared <> Nil Then Return declared
    Return language.Builtin(name)
  End Function

  ' The place of the last dot that stands outside of parentheses; -1 when there is none.
  Function LastDot(expression As String) As Integer
    Dim depth As Integer = 0
    For i = Len(expression) - 1 To 0 Step -1
      Dim unit As String = At(expression, i)
      If unit = ")" Then depth = depth + 1
      If unit = "(" Then depth = depth - 1
      If unit = "." AndAlso depth = 0 Then Return i
    Next
    Return -1
  End Function

  ' The name of the type that an expression has; empty when nobody knows. An element of a list may be of any type.
  Function TypeOf(expression As String, line As Integer) As String
    Dim within As Declaration = source.Around("class", line)
    If within <> Nil Then
      If LCase(expression) = "me" Then Return within.name
      If LCase(expression) = "mybase" Then Return within.parent
    End If
    Dim declared As Declaration = Meant(expression, line)
    If declared = Nil Then
      If LastDot(expression) >= 0 Then Return ""
      Return FirstWord(expression)
    End If
    If declared.kind = "class" Then Return declared.name
    If EndsWith(expression, ")", True) AndAlso declared.parameters = "" Then Return ""
    Return declared.typeName
  End Function

  ' The members of a type: of the source's class and what it inherits, or of the language's.
  Function MembersOf(typeName As String) As NSMutableArray
    Dim found As NSMutableArray = New NSMutableArray
    Dim steps As Integer = 0
    Do While steps < 32
      Dim declared As Declaration = source.ClassNamed(typeName)
      If declared = Nil Then Exit Do
      AppendAll(found, source.MembersOf(typeName))
      typeName = declared.parent
      steps = steps + 1
    Loop
    AppendAll(found, language.MembersOf(typeName))
    Return found
  End Function

  Function MemberNamed(name As String, typeName As String) As Declaration
    Dim members As NSMutableArray = MembersOf(typeName)
    For i = 0 To members.Count - 1
      If LCase(members(i).name) = LCase(name) Then Return members(i)
    Next
    Return Nil
  End Function
End Class
