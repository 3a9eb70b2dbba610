' Digs mazes, and finds the shortest way through them: maze [WIDTH HEIGHT [SEED]]
'
' A cell of the maze is a number: the sum of the walls that it has lost. The way out is searched from the end, ring by
' ring, so that every cell knows how far it is from there.

Const OpensNorth = 1
Const OpensEast = 2
Const OpensSouth = 4
Const OpensWest = 8
Const Unreached = 1000000

Dim columns As Integer
Dim rows As Integer
Dim cells As NSMutableArray
Dim distances As NSMutableArray
Dim seed As Integer

' Numbers that look random, and are the same for the same seed.
Function NextRandom(limit As Integer) As Integer
  seed = seed * 1103515245 + 12345
  seed = seed - (seed \ 2147483648) * 2147483648
  Return (seed \ 65536) * limit \ 32768
End Function

Function CellAt(column As Integer, row As Integer) As Integer
  Return row * columns + column
End Function

Function ColumnOf(cell As Integer) As Integer
  Return cell - (cell \ columns) * columns
End Function

Function RowOf(cell As Integer) As Integer
  Return cell \ columns
End Function

Function HasOpening(cell As Integer, side As Integer) As Boolean
  Dim shifted As Integer = cells(cell) \ side
  Return shifted - (shifted \ 2) * 2 = 1
End Function

Function OppositeOf(side As Integer) As Integer
  Select Case side
    Case OpensNorth
      Return OpensSouth
    Case OpensSouth
      Return OpensNorth
    Case OpensEast
      Return OpensWest
    Case Else
      Return OpensEast
  End Select
End Function

' The cell on a side of another one; less than nothing when the maze ends there.
Function NeighbourOf(cell As Integer, side As Integer) As Integer
  Dim column As Integer = ColumnOf(cell)
  Dim row As Integer = RowOf(cell)
  Select Case side
    Case OpensNorth
      row = row - 1
    Case OpensSouth
      row = row + 1
    Case OpensEast
      column = column + 1
    Case OpensWest
      column = column - 1
  End Select
  If column < 0 Or row < 0 Or column >= columns Or row >= rows Then
    Return 0 - 1
  End If
  Return CellAt(column, row)
End Function

Function AllSides() As NSMutableArray
  Dim sides As NSMutableArray = New NSMutableArray
  sides.Append(OpensNorth)
  sides.Append(OpensEast)
  sides.Append(OpensSouth)
  sides.Append(OpensWest)
  Return sides
End Function

' The sides of a cell behind which nothing is dug yet.
Function UntouchedSides(cell As Integer) As NSMutableArray
  Dim found As NSMutableArray = New NSMutableArray
  Dim sides As NSMutableArray = AllSides()
  For i = 0 To 3
    Dim neighbour As Integer = NeighbourOf(cell, sides(i))
    If neighbour >= 0 Then
      If cells(neighbour) = 0 Then
        found.Append(sides(i))
      End If
    End If
  Next i
  Return found
End Function

Sub OpenWall(cell As Integer, side As Integer)
  Dim neighbour As Integer = NeighbourOf(cell, side)
  cells(cell) = cells(cell) + side
  cells(neighbour) = cells(neighbour) + OppositeOf(side)
End Sub

' Digs on at random until there is no way, then goes back to the last place where there was one.
Sub DigMaze()
  cells = New NSMutableArray
  For i = 1 To columns * rows
    cells.Append(0)
  Next i
  Dim trail As NSMutableArray = New NSMutableArray
  trail.Append(NextRandom(columns * rows))
  Do While trail.Count > 0
    Dim cell As Integer = trail(trail.Count - 1)
    Dim sides As NSMutableArray = UntouchedSides(cell)
    If sides.Count = 0 Then
      trail.Remove(trail.Count - 1)
    Else ' one of the ways is taken
      Dim side As Integer = sides(NextRandom(sides.Count))
      OpenWall(cell, side)
      trail.Append(NeighbourOf(cell, side))
    End If
  Loop ' every cell is dug
End Sub

' How far every cell is from one.
Sub MeasureFrom(goal As Integer)
  distances = New NSMutableArray
  For i = 1 To columns * rows
    distances.Append(Unreached)
  Next i
  Dim ring As NSMutableArray = New NSMutableArray
  Dim sides As NSMutableArray = AllSides()
  distances(goal) = 0
  ring.Append(goal)
  Do While ring.Count > 0
    Dim outside As NSMutableArray = New NSMutableArray
    For i = 0 To ring.Count - 1
      For s = 0 To 3
        If HasOpening(ring(i), sides(s)) Then
          Dim neighbour As Integer = NeighbourOf(ring(i), sides(s))
          If distances(neighbour) = Unreached Then
            distances(neighbour) = distances(ring(i)) + 1
            outside.Append(neighbour)
          End If
        End If
      Next s
    Next i
    ring = outside
  Loop ' no cell is left
End Sub

' The cells from one to the goal, always downhill.
Function WayFrom(start As Integer) As NSMutableArray
  Dim way As NSMutableArray = New NSMutableArray
  Dim sides As NSMutableArray = AllSides()
  Dim cell As Integer = start
  way.Append(cell)
  Do While distances(cell) > 0
    Dim nearer As Integer = cell
    For s = 0 To 3
      If HasOpening(cell, sides(s)) Then
        Dim neighbour As Integer = NeighbourOf(cell, sides(s))
        If distances(neighbour) < distances(nearer) Then
          nearer = neighbour
        End If
      End If
    Next s
    cell = nearer
    way.Append(cell)
  Loop ' the goal is reached
  Return way
End Function

Function FarthestCell() As Integer
  Dim farthest As Integer = 0
  For i = 1 To distances.Count - 1
    If distances(i) > distances(farthest) Then
      farthest = i
    End If
  Next i
  Return farthest
End Function

' The line above a row of cells.
Function WallLine(row As Integer) As String
  Dim line As String = ""
  For column = 0 To columns - 1
    line = line & "+"
    If row < rows And HasOpening(CellAt(column, Min(row, rows - 1)), OpensNorth) Then
      line = line & "   "
    Else ' a wall, or the edge
      line = line & "---"
    End If
  Next column
  Return line & "+"
End Function

Function CellLine(row As Integer, marks As NSMutableDictionary) As String
  Dim line As String = ""
  For column = 0 To columns - 1
    Dim cell As Integer = CellAt(column, row)
    If HasOpening(cell, OpensWest) Then
      line = line & " "
    Else ' there is a wall
      line = line & "|"
    End If
    If marks.Contains(CString(cell)) Then
      line = line & " " & marks(CString(cell)) & " "
    Else ' the way does not come here
      line = line & "   "
    End If
  Next column
  Return line & "|"
End Function

Sub PrintMaze(marks As NSMutableDictionary)
  For row = 0 To rows - 1
    Print WallLine(row)
    Print CellLine(row, marks)
  Next row
  Print WallLine(rows)
End Sub

Function MarksOf(way As NSMutableArray) As NSMutableDictionary
  Dim marks As NSMutableDictionary = New NSMutableDictionary
  For i = 0 To way.Count - 1
    marks(CString(way(i))) = "·"
  Next i
  marks(CString(way(0))) = "A"
  marks(CString(way(way.Count - 1))) = "B"
  Return marks
End Function

Sub Describe(way As NSMutableArray)
  Dim turns As Integer = 0
  For i = 2 To way.Count - 1
    If way(i) - way(i - 1) <> way(i - 1) - way(i - 2) Then
      turns = turns + 1
    End If
  Next i
  Print "From A to B there are " & (way.Count - 1) & " steps and " & turns & " turns."
End Sub

Function Main(arguments As NSMutableArray) As Integer
  columns = 16
  rows = 8
  seed = 2024
  If arguments.Count > 1 Then
    columns = Max(2, Min(60, CInteger(arguments(0))))
    rows = Max(2, Min(60, CInteger(arguments(1))))
  End If
  If arguments.Count > 2 Then
    seed = Max(1, CInteger(arguments(2)))
  End If
  DigMaze()
  ' The two ends of the longest way: the cell farthest from any, and the one farthest from that.
  MeasureFrom(0)
  Dim goal As Integer = FarthestCell()
  MeasureFrom(goal)
  Dim way As NSMutableArray = WayFrom(FarthestCell())
  PrintMaze(MarksOf(way))
  Describe(way)
  Return 0
End Function
