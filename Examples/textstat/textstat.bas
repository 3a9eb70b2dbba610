' Statistics of texts: textstat [--find WORD]... [FILE or URL]...

Const TopWords = 20
Const BarWidth = 30
Dim punctuation As NSMutableDictionary

' The characters that end a word like a space does, also in scripts that write none.
Function WordBreaks() As NSMutableArray
  Dim breaks As NSMutableArray = Split("— – … · / 。 ， 、 ！ ？ ； ： 「 」 『 』 （ ） ・ 〜", " ")
  breaks.Append(Character(9))
  breaks.Append(Character(10))
  breaks.Append(Character(13))
  breaks.Append(Character(160))
  breaks.Append(Character(12288))
  Return breaks
End Function

' The characters that are cut off at both ends of a word.
Function PunctuationMarks() As NSMutableDictionary
  Dim result As NSMutableDictionary = New NSMutableDictionary
  Dim marks As String = ".,;:!?'()[]{}<>*_#=+-|~`^$%&@\" & Character(34)
  marks = marks & "«»„“”‚‘’‹›¿¡†‡•§״׳؟،؛।॥"
  For i = 0 To Len(marks) - 1
    result(At(marks, i)) = True
  Next
  Return result
End Function

Function TrimWord(word As String) As String
  Dim first As Integer = 0
  Dim after As Integer = Len(word)
  Do While first < after
    If punctuation.Contains(At(word, first)) = False Then
      Exit Do
    End If
    first = first + 1
  Loop
  Do While first < after
    If punctuation.Contains(At(word, after - 1)) = False Then
      Exit Do
    End If
    after = after - 1
  Loop
  Return Mid(word, first, after - first)
End Function

' Counts the words of a text and adds them to a table of words and numbers; returns how many there are.
Function CountWords(text As String, table As NSMutableDictionary) As Integer
  Dim breaks As NSMutableArray = WordBreaks()
  For i = 0 To breaks.Count - 1
    text = Replace(text, breaks(i), " ", True)
  Next
  Dim pieces As NSMutableArray = Split(LCase(text), " ")
  Dim words As Integer = 0
  For i = 0 To pieces.Count - 1
    Dim word As String = TrimWord(pieces(i))
    If Len(word) > 0 Then
      words = words + 1
      If table.Contains(word) Then
        table(word) = table(word) + 1
      Else
        table(word) = 1
      End If
    End If
  Next
  Return words
End Function

Sub AddTable(total As NSMutableDictionary, table As NSMutableDictionary)
  Dim keys As NSMutableArray = table.Keys
  For i = 0 To keys.Count - 1
    Dim word As String = keys(i)
    If total.Contains(word) Then
      total(word) = total(word) + table(word)
    Else
      total(word) = table(word)
    End If
  Next
End Sub

' The place that keeps a list in falling order: behind all that are as great.
Function PlaceFor(number As Integer, numbers As NSMutableArray) As Integer
  Dim place As Integer = numbers.Count
  Do While place > 0
    If numbers(place - 1) >= number Then
      Exit Do
    End If
    place = place - 1
  Loop
  Return place
End Function

Function Column(value As Object, width As Integer) As String
  Return Right(Space(width, " ") & value, width)
End Function

Sub ShowWords(table As NSMutableDictionary)
  Dim keys As NSMutableArray = table.Keys
  Dim words As NSMutableArray = New NSMutableArray
  Dim counts As NSMutableArray = New NSMutableArray
  For i = 0 To keys.Count - 1
    Dim number As Integer = table(keys(i))
    Dim place As Integer = PlaceFor(number, counts)
    If place < TopWords Then
      words.Insert(keys(i), place)
      counts.Insert(number, place)
      If counts.Count > TopWords Then
        words.Remove(TopWords)
        counts.Remove(TopWords)
      End If
    End If
  Next
  Print "  most frequent words"
  For i = 0 To words.Count - 1
    Dim bar As String = Space(Max(1, BarWidth * counts(i) \ counts(0)), "█")
    Print Column(counts(i), 8) & "  " & Left(bar & Space(BarWidth, " "), BarWidth) & "  " & words(i)
  Next
End Sub

Sub ShowLongestLines(lines As NSMutableArray)
  Dim places As NSMutableArray = New NSMutableArray
  Dim lengths As NSMutableArray = New NSMutableArray
  For i = 0 To lines.Count - 1
    Dim place As Integer = PlaceFor(Len(lines(i)), lengths)
    If place < 3 AndAlso Len(lines(i)) > 0 Then
      places.Insert(i, place)
      lengths.Insert(Len(lines(i)), place)
      If lengths.Count > 3 Then
        places.Remove(3)
        lengths.Remove(3)
      End If
    End If
  Next
  Print "  longest lines"
  For i = 0 To places.Count - 1
    Dim line As String = Trim(lines(places(i)))
    If Len(line) > 60 Then
      line = Left(line, 60) & "…"
    End If
    Print Column(lengths(i), 8) & "  line " & (places(i) + 1) & ": " & line
  Next
End Sub

Sub ShowOccurrences(text As String, finds As NSMutableArray)
  For i = 0 To finds.Count - 1
    Dim sameCase As Integer = Count(text, finds(i), True)
    Dim anyCase As Integer = Count(text, finds(i), False)
    Print "  " & Character(34) & finds(i) & Character(34) & ": " & sameCase & " in this case, " & anyCase & " in any case"
  Next
End Sub

' Prints what there is to say about one file; adds its numbers of lines and words to totals, its words to allWords.
Sub ShowFile(path As String, finds As NSMutableArray, totals As NSMutableArray, allWords As NSMutableDictionary)
  Dim text As String = ReadString(Location(path))
  Dim lines As NSMutableArray = Split(Replace(text, Character(13), "", True), Character(10))
  If Len(lines(lines.Count - 1)) = 0 Then
    lines.Remove(lines.Count - 1)
  End If
  Dim table As NSMutableDictionary = New NSMutableDictionary
  Dim words As Integer = CountWords(text, table)
  Print path & ": " & lines.Count & " lines, " & words & " words, " & table.Count & " distinct words"
  ShowWords(table)
  ShowLongestLines(lines)
  ShowOccurrences(text, finds)
  Print ""
  totals(0) = totals(0) + lines.Count
  totals(1) = totals(1) + words
  totals(2) = totals(2) + 1
  AddTable(allWords, table)
End Sub

Function Main(arguments As NSMutableArray) As Integer
  Dim paths As NSMutableArray = New NSMutableArray
  Dim finds As NSMutableArray = New NSMutableArray
  Dim i As Integer = 0
  Do While i < arguments.Count
    Dim argument As String = arguments(i)
    If argument = "--help" Then
      Print "textstat [--find WORD]... [FILE or URL]..."
      Return 0
    ElseIf argument = "--find" AndAlso i + 1 < arguments.Count Then
      i = i + 1
      finds.Append(arguments(i))
    ElseIf StartsWith(argument, "--", True) Then
      PrintError "textstat: " & argument & ": no such option, or its word is missing"
      Return 2
    Else
      paths.Append(argument)
    End If
    i = i + 1
  Loop
  If paths.Count = 0 Then
    paths.Append("/usr/share/common-licenses/GPL-3")
    paths.Append(EXAMPLE_FOLDER & "/manyscripts.txt")
  End If
  punctuation = PunctuationMarks()
  Dim totals As NSMutableArray = New NSMutableArray
  For i = 0 To 2
    totals.Append(0)
  Next
  Dim allWords As NSMutableDictionary = New NSMutableDictionary
  Dim status As Integer = 0
  For i = 0 To paths.Count - 1
    Try
      ShowFile(paths(i), finds, totals, allWords)
    Catch failure
      PrintError "textstat: " & paths(i) & ": " & failure.Reason
      status = 1
    End Try
  Next
  If totals(2) > 1 Then
    Print "total: " & totals(2) & " files, " & totals(0) & " lines, " & totals(1) & " words, " & allWords.Count & " distinct words"
  End If
  Return status
End Function
