' Free-hand drawing: the mouse draws, keys choose colours and widths.
' 1 to 6 choose a colour, + and - the width, Z or Delete takes the last stroke back, C clears.

Class Stroke
  Public Dim color
  Public Dim path As NSBezierPath
End Class

Class Sheet Inherits NSView
  Public Dim strokes As NSMutableArray = New NSMutableArray
  Public Dim colors As NSMutableArray = New NSMutableArray
  Public Dim color As Integer = 0
  Public Dim width As Integer = 4
  Public Dim drawn As Stroke

  Function AcceptsFirstResponder() As Boolean
    Return True
  End Function

  Sub Prepare()
    Dim names As NSMutableArray = Split("black red orange green blue purple", " ")
    For i = 0 To names.Count - 1
      colors.Append(PerformSelector0(NSColor, names(i) & "Color"))
    Next
  End Sub

  Sub DrawRect(dirty As Rect)
    PerformSelector0(PerformSelector0(NSColor, "whiteColor"), "set")
    PerformSelector1(NSBezierPath, "fillRect:", dirty)
    For i = 0 To strokes.Count - 1
      PerformSelector0(strokes(i).color, "setStroke")
      PerformSelector0(strokes(i).path, "stroke")
    Next
    DrawPalette
  End Sub

  Sub DrawPalette()
    For i = 0 To colors.Count - 1
      PerformSelector0(colors(i), "set")
      Dim dot = PerformSelector1(NSBezierPath, "bezierPathWithOvalInRect:", Rect(12 + 28 * i, 12, 20, 20))
      PerformSelector0(dot, "fill")
      If i = color Then
        Dim ring = PerformSelector1(NSBezierPath, "bezierPathWithOvalInRect:", Rect(9 + 28 * i, 9, 26, 26))
        PerformSelector0(PerformSelector0(NSColor, "grayColor"), "set")
        PerformSelector0(ring, "stroke")
      End If
    Next
    Dim text As String = "width " & width & ", " & strokes.Count & " strokes"
    PerformSelector2(text, "drawAtPoint:withAttributes:", Point(190, 14), TextAttributes())
  End Sub

  Sub MouseDown(event)
    Dim place As Point = PerformSelector2(Me, "convertPoint:fromView:", event.locationInWindow, Nil)
    If place.Y < 40 AndAlso place.X < 12 + 28 * colors.Count Then
      ChooseColor((place.X - 12) \ 28)
      drawn = Nil
      Return
    End If
    Dim stroke As Stroke = New Stroke
    stroke.color = colors(color)
    stroke.path = PerformSelector0(NSBezierPath, "bezierPath")
    PerformSelector1(stroke.path, "setLineWidth:", width)
    PerformSelector1(stroke.path, "setLineCapStyle:", 1)
    PerformSelector1(stroke.path, "setLineJoinStyle:", 1)
    PerformSelector1(stroke.path, "moveToPoint:", place)
    PerformSelector1(stroke.path, "lineToPoint:", place)
    strokes.Append(stroke)
    drawn = stroke
    Redraw
  End Sub

  ' A press that chose a colour draws nothing.
  Sub MouseDragged(event)
    If drawn = Nil Then
      Return
    End If
    Dim place As Point = PerformSelector2(Me, "convertPoint:fromView:", event.locationInWindow, Nil)
    PerformSelector1(drawn.path, "lineToPoint:", place)
    Redraw
  End Sub

  Sub KeyDown(event)
    Dim key As String = LCase(event.characters)
    If key = "c" Then
      strokes.RemoveAll
    ElseIf (key = "z" OrElse key = Character(127)) AndAlso strokes.Count > 0 Then
      strokes.Remove(strokes.Count - 1)
    ElseIf key = "+" Then
      width = Min(40, width + 2)
    ElseIf key = "-" Then
      width = Max(2, width - 2)
    Else
      ChooseColor(InStr("123456", key, 0, True))
    End If
    Redraw
  End Sub

  Sub WindowWillClose(notification)
    FirstResponder.SendAction("terminate")
  End Sub

  Sub ChooseColor(index As Integer)
    If index >= 0 AndAlso index < colors.Count Then
      color = index
    End If
    Redraw
  End Sub
End Class

Function TextAttributes()
  Dim attributes As NSMutableDictionary = New NSMutableDictionary
  attributes("NSFont") = PerformSelector1(NSFont, "systemFontOfSize:", 13)
  attributes("NSColor") = PerformSelector0(NSColor, "darkGrayColor")
  Return attributes
End Function

Function Main() As Integer
  Dim window As NSWindow = New NSWindow
  window.Title = "Drawing"
  window.Frame = Rect(200, 200, 480, 382)
  Dim sheet As Sheet = New Sheet
  sheet.Prepare
  sheet.Frame = Rect(0, 0, 480, 360)
  sheet.AutoresizingMask = 18
  window.Append(sheet)
  window.InitialFirstResponder = sheet
  window.Delegate = sheet
  window.Show
  ShotWhenAsked(window, sheet)
  Return 0
End Function
