' The reader's settings, and the window in which a person changes them. The controls are bound to the settings, so that
' each change acts at once, wherever it comes from.

Function KeptColor(key As String) As NSColor
  Dim parts As NSArray = NSUserDefaults.Get(key)
  Return New NSColor(parts(0), parts(1), parts(2), 1.0)
End Function

Function ColorParts(red As Double, green As Double, blue As Double) As NSMutableArray
  Dim parts As NSMutableArray = New NSMutableArray
  parts.Append(red)
  parts.Append(green)
  parts.Append(blue)
  Return parts
End Function

Class ReaderPreferences Inherits VLPreferences
  Public Dim owner
  Public Dim panes As NSMutableArray = New NSMutableArray
  Public Dim name As NSTextField
  Public Dim size As Label
  Public Dim textColor As NSColorWell
  Public Dim paperColor As NSColorWell

  Function PreferencesItemIdentifiers() As NSArray
    Return Split("General Appearance Advanced", " ")
  End Function

  Function PreferencesItems() As NSMutableArray
    If panes.Count = 0 Then
      BuildGeneral(AddPane(400, 148))
      BuildAppearance(AddPane(440, 188))
      BuildAdvanced(AddPane(400, 130))
      ShowValues()
    End If
    Return panes
  End Function

  Function PreferencesDefaults() As NSMutableDictionary
    Dim usual As NSMutableDictionary = New NSMutableDictionary
    usual("Name") = ""
    usual("Greets") = True
    usual("ShowsClock") = True
    usual("ShowsSeconds") = False
    usual("Typeface") = 0
    usual("FontSize") = 14.0
    usual("TextColor") = ColorParts(0.16, 0.15, 0.13)
    usual("PaperColor") = ColorParts(0.99, 0.97, 0.92)
    usual("AsksToClose") = False
    usual("KeepsFrame") = True
    Return usual
  End Function

  Sub PreferencesChanged(key As String)
    If panes.Count > 0 Then ShowValues()
    owner.Dress()
  End Sub

  Sub BuildGeneral(pane As NSView)
    name = New NSTextField
    name.Delegate = Me
    AddRow(pane, "Your name:", name, 106, 250)
    AddBox(pane, "Greet me by it", "Greets", 74)
    AddBox(pane, "Show the time of day", "ShowsClock", 46)
    AddBox(pane, "With seconds", "ShowsSeconds", 18)
  End Sub

  Sub BuildAppearance(pane As NSView)
    Dim typeface As NSPopUpButton = New NSPopUpButton
    typeface.Append("Plain")
    typeface.Append("Bold")
    typeface.Append("All characters of one width")
    Bind(typeface, "integerValue", NSUserDefaults, "Typeface", Nil)
    AddRow(pane, "Letters:", typeface, 144, 240)
    Dim slider As NSSlider = New NSSlider
    Property(slider, "minValue", 10)
    Property(slider, "maxValue", 32)
    Property(slider, "numberOfTickMarks", 12)
    Property(slider, "allowsTickMarkValuesOnly", True)
    Property(slider, "continuous", True)
    Bind(slider, "doubleValue", NSUserDefaults, "FontSize", Nil)
    AddRow(pane, "Size:", slider, 102, 240)
    size = New Label
    size.Frame = Rect(374, 104, 60, 22)
    pane.Append(size)
    textColor = New NSColorWell(Me, "takeColor:")
    AddRow(pane, "Text:", textColor, 60, 60)
    paperColor = New NSColorWell(Me, "takeColor:")
    AddRow(pane, "Paper:", paperColor, 18, 60)
  End Sub

  Sub BuildAdvanced(pane As NSView)
    AddCaption(pane, "Window:", 88)
    AddBox(pane, "Ask before it is closed", "AsksToClose", 88)
    AddBox(pane, "Open it where it was closed", "KeepsFrame", 60)
    Dim button As PushButton = New PushButton(Me, "forget:")
    button.Title = "Use the Usual Settings"
    button.Frame = Rect(126, 16, 200, 28)
    pane.Append(button)
  End Sub

  Function AddPane(width As Integer, height As Integer) As NSView
    Dim pane As NSView = New NSView
    pane.Frame = Rect(0, 0, width, height)
    panes.Append(pane)
    Return pane
  End Function

  Sub AddCaption(pane As NSView, caption As String, y As Integer)
    Dim words As Label = New Label
    words.StringValue = caption
    words.Alignment = 1
    words.Frame = Rect(16, y, 100, 22)
    pane.Append(words)
  End Sub

  Sub AddRow(pane As NSView, caption As String, control, y As Integer, width As Integer)
    AddCaption(pane, caption, y + 2)
    control.Frame = Rect(126, y, width, 26)
    control.ToolTip = Left(caption, Len(caption) - 1)
    pane.Append(control)
  End Sub

  Sub AddBox(pane As NSView, caption As String, key As String, y As Integer)
    Dim box As CheckBox = New CheckBox
    box.Title = caption
    box.Frame = Rect(126, y, 264, 24)
    Bind(box, "state", NSUserDefaults, key, Nil)
    pane.Append(box)
  End Sub

  ' Colours and texts are shown by hand: a setting is no colour, and a name is kept while it is typed.
  Sub ShowValues()
    If name.StringValue <> NSUserDefaults.Get("Name") Then name.StringValue = NSUserDefaults.Get("Name")
    size.StringValue = CString(CInteger(NSUserDefaults.Get("FontSize"))) & " pt"
    Property(textColor, "color", KeptColor("TextColor"))
    Property(paperColor, "color", KeptColor("PaperColor"))
  End Sub

  Sub ControlTextDidChange(notification)
    NSUserDefaults.Set("Name", name.StringValue)
  End Sub

  Sub TakeColor(well As NSColorWell)
    Dim key As String = "TextColor"
    If well == paperColor Then key = "PaperColor"
    Dim color = Property(well, "color")
    NSUserDefaults.Set(key, ColorParts(color.redComponent, color.greenComponent, color.blueComponent))
  End Sub

  Sub Forget(sender)
    Dim keys As NSArray = PreferencesDefaults().Keys
    For i = 0 To keys.Count - 1
      NSUserDefaults.Remove(keys(i))
    Next
  End Sub

  ' Close means the window that has the keyboard. Whether it was this one.
  Function CloseIfKey() As Boolean
    If panes.Count = 0 Then Return False
    If Not PerformSelector0(Me, "window").IsKeyWindow Then Return False
    PerformSelector0(Me, "close")
    Return True
  End Function
End Class
