' Searching for whole words, which the editor's own search leaves to its programs.

Class WholeWords
  Public Dim word As String = ""
  Public Dim respectsCase As Boolean = True
  Public Dim replacements As Integer = 0

  ' What is found at a place goes on in a word neither before nor behind it.
  Function StandsAlone(text As String, place As Integer) As Boolean
    If place > 0 Then
      If IsWordUnit(Unicode(text, place - 1)) AndAlso IsWordUnit(Unicode(word, 0)) Then Return False
    End If
    Dim behind As Integer = place + Len(word)
    If behind >= Len(text) Then Return True
    Return Not (IsWordUnit(Unicode(text, behind)) AndAlso IsWordUnit(Unicode(word, Len(word) - 1)))
  End Function

  ' The first place from one on; -1 when there is none.
  Function NextPlace(text As String, from As Integer) As Integer
    If word = "" Then Return -1
    Dim place As Integer = InStr(text, word, from, respectsCase)
    Do While place >= 0
      If StandsAlone(text, place) Then Return place
      place = InStr(text, word, place + 1, respectsCase)
    Loop
    Return -1
  End Function

  ' The last place that ends at one or before it; -1 when there is none.
  Function PreviousPlace(text As String, limit As Integer) As Integer
    Dim found As Integer = -1
    Dim place As Integer = NextPlace(text, 0)
    Do While place >= 0 AndAlso place + Len(word) <= limit
      found = place
      place = NextPlace(text, place + 1)
    Loop
    Return found
  End Function

  ' The text with every one of them replaced; replacements says how many they were.
  Function Replaced(text As String, replacement As String) As String
    Dim pieces As NSMutableArray = New NSMutableArray
    Dim from As Integer = 0
    replacements = 0
    Dim place As Integer = NextPlace(text, 0)
    Do While place >= 0
      pieces.Append(Mid(text, from, place - from))
      replacements = replacements + 1
      from = place + Len(word)
      place = NextPlace(text, from)
    Loop
    pieces.Append(Mid(text, from, -1))
    Return Join(pieces, replacement)
  End Function
End Class
