' What is sought and how, and the searches in a view.

Class Search
  Public Dim needle As String = ""
  Public Dim replacement As String = ""
  Public Dim ignoresCase As Boolean = True
  Public Dim selectedOnly As Boolean = False
  Public Dim wholeWords As Boolean = False
  Public Dim words As WholeWords = New WholeWords

  Sub Prepare(view As VLTextView)
    view.FindSetOptionIgnoreCase(ignoresCase)
    view.FindSetOptionSelectedTextOnly(selectedOnly)
    view.FindSetOptionWholeWordsOnly(wholeWords)
    words.word = needle
    words.respectsCase = Not ignoresCase
  End Sub

  Function FindNext(view As VLTextView) As Boolean
    Prepare(view)
    If Not wholeWords Then Return view.FindNext(needle)
    Dim selection As Range = Property(view, "selectedRange")
    Dim text As String = view.Value
    If selectedOnly AndAlso selection.Length > 0 Then
      Dim within As Integer = words.NextPlace(text, selection.Location)
      If within + Len(needle) > selection.Location + selection.Length Then Return False
      Return Choose(view, within)
    End If
    Dim place As Integer = words.NextPlace(text, selection.Location + 1)
    If place < 0 Then place = words.NextPlace(text, 0)
    Return Choose(view, place)
  End Function

  Function FindPrevious(view As VLTextView) As Boolean
    Prepare(view)
    If Not wholeWords Then Return view.FindPrevious(needle)
    Dim selection As Range = Property(view, "selectedRange")
    Dim text As String = view.Value
    If selectedOnly AndAlso selection.Length > 0 Then
      Dim within As Integer = words.PreviousPlace(text, selection.Location + selection.Length)
      If within < selection.Location Then Return False
      Return Choose(view, within)
    End If
    Dim place As Integer = words.PreviousPlace(text, selection.Location)
    If place < 0 Then place = words.PreviousPlace(text, Len(text))
    Return Choose(view, place)
  End Function

  ' Selects and shows a match; -1 is none.
  Function Choose(view As VLTextView, place As Integer) As Boolean
    If place < 0 Then Return False
    Dim found As Range = Range(place, Len(needle))
    PerformSelector1(view, "setSelectedRange:", found)
    PerformSelector1(view, "scrollRangeToVisible:", found)
    Return True
  End Function

  ' Only what was found is replaced, never what somebody selected since.
  Function IsFound(view As VLTextView) As Boolean
    If needle = "" Then Return False
    Return Compare(view.SelectedText, needle, Not ignoresCase) = 0
  End Function

  ' Replaces what was found, and finds the next one.
  Function ReplaceOne(view As VLTextView) As Boolean
    If IsFound(view) Then view.FindReplace(replacement)
    Return FindNext(view)
  End Function

  ' How many were replaced, all of which is undone at once.
  Function ReplaceAll(view As VLTextView) As Integer
    Prepare(view)
    If needle = "" Then Return 0
    If Not wholeWords Then Return view.FindReplaceAll(needle, replacement)
    Dim text As String = view.Value
    Dim place As Range = Property(view, "selectedRange")
    If Not selectedOnly OrElse place.Length = 0 Then place = Range(0, Len(text))
    Dim changed As String = words.Replaced(Mid(text, place.Location, place.Length), replacement)
    If words.replacements = 0 Then Return 0
    If Not PerformSelector2(view, "shouldChangeTextInRange:replacementString:", place, changed) Then Return 0
    PerformSelector2(view, "replaceCharactersInRange:withString:", place, changed)
    PerformSelector0(view, "didChangeText")
    Return words.replacements
  End Function
End Class
