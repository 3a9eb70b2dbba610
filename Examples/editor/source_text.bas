' Pieces of source text: where a comment begins, what belongs to a word.

' Letters, digits and the underscore make words.
Function IsWordUnit(unit As Integer) As Boolean
  If unit >= 48 AndAlso unit <= 57 Then Return True
  If unit >= 65 AndAlso unit <= 90 Then Return True
  If unit >= 97 AndAlso unit <= 122 Then Return True
  Return unit = 95 OrElse unit >= 192
End Function

' The word with which a text begins; empty when it begins with something else.
Function FirstWord(text As String) As String
  Dim length As Integer = 0
  Do While length < Len(text)
    If Not IsWordUnit(Unicode(text, length)) Then Exit Do
    length = length + 1
  Loop
  Return Left(text, length)
End Function

' A line without its comment. The marker of a comment means nothing within a string.
Function WithoutComment(line As String) As String
  If Not Contains(line, "'", True) Then Return line
  Dim inString As Boolean = False
  For i = 0 To Len(line) - 1
    Dim unit As Integer = Unicode(line, i)
    If unit = 34 Then inString = Not inString
    If unit = 39 AndAlso Not inString Then Return Left(line, i)
  Next
  Return line
End Function

' What is typed behind this part of a line belongs to the program, not to a string or a comment.
Function GoesOnAsCode(part As String) As Boolean
  Dim quotes As Integer = Count(part, Character(34), True)
  Return quotes Mod 2 = 0 AndAlso WithoutComment(part) = part
End Function
