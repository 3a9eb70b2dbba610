' Conway's game of life on a board whose edges meet: life [GENERATIONS [PATTERN]]
' A pattern is a text file; every # in it is a living cell.

Function ReadBoard(path As String) As NSMutableArray
  Dim lines As NSMutableArray = Split(ReadString(path), Character(10))
  Dim width As Integer = 0
  For y = 0 To lines.Count - 1
    width = Max(width, Len(lines(y)))
  Next
  Dim board As NSMutableArray = New NSMutableArray
  For y = 0 To lines.Count - 1
    If Len(lines(y)) > 0 Then
      Dim row As NSMutableArray = New NSMutableArray
      For x = 0 To width - 1
        row.Append(Mid(lines(y), x, 1) = "#")
      Next
      board.Append(row)
    End If
  Next
  Return board
End Function

Function Neighbours(board As NSMutableArray, x As Integer, y As Integer) As Integer
  Dim height As Integer = board.Count
  Dim width As Integer = board(0).Count
  Dim sum As Integer = 0
  For dy = -1 To 1
    Dim row As NSMutableArray = board((y + dy + height) Mod height)
    For dx = -1 To 1
      sum = sum + row((x + dx + width) Mod width)
    Next
  Next
  Return sum - board(y)(x)
End Function

Function NextBoard(board As NSMutableArray) As NSMutableArray
  Dim result As NSMutableArray = New NSMutableArray
  For y = 0 To board.Count - 1
    Dim row As NSMutableArray = New NSMutableArray
    For x = 0 To board(y).Count - 1
      Dim n As Integer = Neighbours(board, x, y)
      row.Append(n = 3 OrElse (n = 2 AndAlso board(y)(x)))
    Next
    result.Append(row)
  Next
  Return result
End Function

Sub ShowBoard(board As NSMutableArray, generation As Integer)
  Dim population As Integer = 0
  Dim picture As NSMutableArray = New NSMutableArray
  For y = 0 To board.Count - 1
    Dim row As String = ""
    For x = 0 To board(y).Count - 1
      If board(y)(x) Then
        population = population + 1
        row = row & "#"
      Else
        row = row & "."
      End If
    Next
    picture.Append(row)
  Next
  Print "Generation " & generation & ", population " & population
  Print Join(picture, Character(10))
End Sub

Function Main(arguments As NSMutableArray) As Integer
  Dim generations As Integer = 4
  Dim path As String = EXAMPLE_FOLDER & "/glider.txt"
  If arguments.Count > 0 Then
    generations = Max(0, CInteger(arguments(0)))
  End If
  If arguments.Count > 1 Then
    path = Location(arguments(1))
  End If
  Try
    Dim board As NSMutableArray = ReadBoard(path)
    ShowBoard(board, 0)
    For generation = 1 To generations
      board = NextBoard(board)
    Next
    ShowBoard(board, generations)
  Catch failure
    PrintError "life: cannot read " & path & ": " & failure.Reason
    Return 1
  End Try
  Return 0
End Function
