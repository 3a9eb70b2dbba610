' Lengths, weights and temperatures: what is typed into one field stands in all others of its group at once.

Class Converter
  Dim window As NSWindow
  Dim fields As NSMutableArray
  Dim groups As NSMutableArray
  Dim factors As NSMutableArray
  Dim offsets As NSMutableArray

  ' A number with four decimals at most.
  Function ShortText(number As Double) As String
    Dim text As String = FormatDecimal(number, False, 4)
    Do While Right(text, 1) = "0"
      text = Left(text, Len(text) - 1)
    Loop
    If Right(text, 1) = "." Then
      text = Left(text, Len(text) - 1)
    End If
    Return text
  End Function

  ' Shows what the number in a field is in the other units of its group.
  Sub Convert(source As Integer)
    Dim amount As Double = (fields(source).DoubleValue + offsets(source)) * factors(source)
    For i = 0 To fields.Count - 1
      If i <> source AndAlso groups(i) = groups(source) Then
        fields(i).StringValue = ShortText(amount / factors(i) - offsets(i))
      End If
    Next
  End Sub

  ' Every key that somebody types comes here.
  Sub ControlTextDidChange(notification)
    Convert(PerformSelector0(notification, "object").Tag)
  End Sub

  ' One unit: its name, and its field in a row of its own.
  Sub AddUnit(name As String, group As Integer, factor As Double, offset As Double)
    Dim y As Integer = 346 - fields.Count * 30 - group * 14
    Dim caption = New Label
    caption.StringValue = name
    caption.Alignment = 1
    caption.Frame = Rect(16, y + 3, 100, 18)
    window.Append(caption)
    Dim field = New NSTextField(Me, "")
    field.Tag = fields.Count
    field.ToolTip = name
    field.Frame = Rect(124, y, 180, 24)
    field.AutoresizingMask = 2
    window.Append(field)
    fields.Append(field)
    groups.Append(group)
    factors.Append(factor)
    offsets.Append(offset)
  End Sub

  ' A number in a field, as if it were typed.
  Sub Fill(index As Integer, text As String)
    fields(index).StringValue = text
    Convert(index)
  End Sub

  Sub Open()
    fields = New NSMutableArray
    groups = New NSMutableArray
    factors = New NSMutableArray
    offsets = New NSMutableArray
    window = New NSWindow
    window.Title = "Converter"
    window.Frame = Rect(200, 200, 320, 408)
    AddUnit("Metres", 0, 1.0, 0.0)
    AddUnit("Kilometres", 0, 1000.0, 0.0)
    AddUnit("Feet", 0, 0.3048, 0.0)
    AddUnit("Miles", 0, 1609.344, 0.0)
    AddUnit("Kilograms", 1, 1.0, 0.0)
    AddUnit("Pounds", 1, 0.45359237, 0.0)
    AddUnit("Ounces", 1, 0.028349523125, 0.0)
    AddUnit("Celsius", 2, 1.0, 0.0)
    AddUnit("Fahrenheit", 2, 5.0 / 9.0, -32.0)
    AddUnit("Kelvin", 2, 1.0, -273.15)
    Fill(0, "1")
    Fill(4, "1")
    Fill(7, "20")
    window.RecalculateKeyViewLoop()
    window.CenterAndShow()
    fields(0).SelectText()
  End Sub

  ' Closing the window ends the program.
  Sub WindowWillClose(notification)
    PerformSelector1(NSApp, "terminate:", Me)
  End Sub
End Class

Sub Main
  Dim converter As Converter = New Converter
  converter.Open()
  converter.window.Delegate = converter
  ShotWhenAsked(converter.window)
End Sub
