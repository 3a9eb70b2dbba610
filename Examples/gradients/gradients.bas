' Gradients: every ready-made one, mixed in every way, at every angle.

Function NewGradient(index As Integer)
  Dim names As NSArray = Split("aquaSelected aquaNormal aquaPressed unifiedSelected unifiedNormal unifiedPressed unifiedDark sourceListSelected sourceListUnselected rainbow hydrogenSpectrum", " ")
  Return PerformSelector0(PXGradient, names(index) & "Gradient")
End Function

' A list of gradients, of which one is chosen.
Class Swatches Inherits NSView
  Public Dim chosen As Integer = 9
  Public Dim owner

  Function AcceptsFirstResponder() As Boolean
    Return True
  End Function

  Sub DrawRect(dirty As Rect)
    For i = 0 To 10
      If i = chosen Then
        PerformSelector0(PerformSelector0(NSColor, "selectedControlColor"), "set")
        PerformSelector1(NSBezierPath, "fillRect:", Rect(8, Me.Height - 44 - 36 * i, 164, 34))
      End If
      PerformSelector1(NewGradient(i), "drawSwatchInRect:", Rect(12, Me.Height - 40 - 36 * i, 156, 26))
    Next
  End Sub

  Sub MouseDown(event)
    Dim place As Point = PerformSelector2(Me, "convertPoint:fromView:", event.locationInWindow, Nil)
    Choose((Me.Height - 9 - place.Y) \ 36)
  End Sub

  Sub KeyDown(event)
    If event.characters = Character(63232) Then
      Choose(chosen - 1)
    ElseIf event.characters = Character(63233) Then
      Choose(chosen + 1)
    End If
  End Sub

  Sub Choose(index As Integer)
    If index >= 0 AndAlso index <= 10 Then
      chosen = index
      Me.Redraw()
      owner.Show(Nil)
    End If
  End Sub
End Class

' A gradient from the middle of a view.
Class Spot Inherits NSView
  Public Dim gradient

  Sub DrawRect(dirty As Rect)
    PerformSelector0(PerformSelector1(NSBezierPath, "bezierPathWithOvalInRect:", Me.Bounds), "addClip")
    PerformSelector1(gradient, "radialFillRect:", Me.Bounds)
  End Sub
End Class

Class Gradients
  Public Dim window As NSWindow
  Public Dim swatches As Swatches
  Public Dim sheet As VLBackgroundView
  Public Dim spot As Spot
  Public Dim mode As NSPopUpButton
  Public Dim angle As NSSlider
  Public Dim opacity As NSSlider
  Public Dim radius As NSSlider

  Sub Build()
    window = New NSWindow
    window.Title = "Gradients"
    window.ContentSize = Size(720, 424)
    swatches = New Swatches
    swatches.owner = Me
    swatches.Frame = Rect(8, 8, 180, 408)
    swatches.ToolTip = "Gradients"
    Dim side = New VLBackgroundView
    side.Frame = Rect(8, 8, 180, 408)
    side.SetBackgroundGradient(New NSColor(0.5, 0.5, 0.55, 0.25), New NSColor(0.5, 0.5, 0.55, 0.1))
    side.SetBackgroundCornerRadius(10)
    window.Append(side)
    window.Append(swatches)
    sheet = New VLBackgroundView
    sheet.Frame = Rect(204, 172, 276, 236)
    window.Append(sheet)
    spot = New Spot
    spot.Frame = Rect(496, 184, 212, 212)
    window.Append(spot)
    mode = New NSPopUpButton(Me, "show:")
    mode.Append("As it is made")
    mode.Append("Linear")
    mode.Append("Chromatic")
    mode.Append("Inverse chromatic")
    AddRow("Mixed", mode, 128)
    angle = NewSlider(0, 360, 90)
    AddRow("Angle", angle, 92)
    opacity = NewSlider(0, 1, 1)
    AddRow("Opacity", opacity, 56)
    radius = NewSlider(0, 118, 24)
    AddRow("Corners", radius, 20)
    window.Delegate = Me
    window.InitialFirstResponder = swatches
    Show(Nil)
    window.Show()
  End Sub

  Function NewSlider(least As Double, most As Double, value As Double) As NSSlider
    Dim slider = New NSSlider(Me, "show:")
    Property(slider, "minValue", least)
    Property(slider, "maxValue", most)
    Property(slider, "continuous", True)
    slider.DoubleValue = value
    Return slider
  End Function

  Sub AddRow(name As String, control, y As Integer)
    Dim caption = New Label
    caption.StringValue = name
    caption.Alignment = 1
    caption.Frame = Rect(204, y + 3, 80, 20)
    window.Append(caption)
    control.Frame = Rect(296, y, 412, 26)
    control.ToolTip = name
    window.Append(control)
  End Sub

  ' What is shown follows from the controls.
  Sub Show(sender)
    Dim gradient = NewGradient(swatches.chosen)
    If mode.Selected > 0 Then
      gradient = PerformSelector1(gradient, "gradientWithBlendingMode:", mode.Selected - 1)
    End If
    PerformSelector2(sheet, "setBackgroundGradient:withAngle:", gradient, angle.DoubleValue)
    PerformSelector1(sheet, "setBackgroundAlpha:", opacity.DoubleValue)
    sheet.SetBackgroundCornerRadius(radius.DoubleValue)
    spot.gradient = PerformSelector1(gradient, "gradientWithAlphaComponent:", opacity.DoubleValue)
    spot.Redraw()
  End Sub

  Sub WindowWillClose(notification)
    FirstResponder.SendAction("terminate")
  End Sub
End Class

Sub Main
  Dim program As Gradients = New Gradients
  program.Build()
End Sub
