' The gallery: every kind of control in one window. What each of them sends appears in the log at the bottom.

Class Gallery
  Dim window As NSWindow
  Dim log As NSTextView
  Dim names As NSMutableArray
  Dim row As Integer
  Dim column As Integer

  ' What every control calls: its name and its value go into the log.
  Sub Pressed(sender)
    log.Append(names(sender.Tag) & ": " & sender.StringValue & Character(10))
  End Sub

  ' Puts a view under its name into the next place of the grid; width and height are the view's.
  Sub Place(view, name As String, width As Integer, height As Integer)
    Dim x As Integer = 16 + column * 240
    Dim y As Integer = 760 - row * 52
    Dim caption = New Label
    caption.StringValue = name
    caption.Frame = Rect(x, y + 4, 84, 17)
    caption.Alignment = 1
    window.Append(caption)
    view.Frame = Rect(x + 92, y + 12 - height / 2, width, height)
    window.Append(view)
    row = row + 1
    If row = 12 Then
      row = 0
      column = column + 1
    End If
  End Sub

  ' The same for a control, which is told apart by its tag.
  Sub PlaceControl(control, name As String, width As Integer, height As Integer)
    control.Tag = names.Count
    names.Append(name)
    Place(control, name, width, height)
  End Sub

  Sub PlaceButton(button, name As String, title As String, width As Integer, height As Integer)
    button.Title = title
    PlaceControl(button, name, width, height)
  End Sub

  Sub Buttons()
    PlaceButton(New PushButton(Me, "pressed:"), "Push", "Save", 110, 24)
    PlaceButton(New BevelButton(Me, "pressed:"), "Bevel", "Bevel", 110, 28)
    PlaceButton(New SquareButton(Me, "pressed:"), "Square", "Square", 110, 26)
    PlaceButton(New TexturedButton(Me, "pressed:"), "Textured", "Textured", 110, 26)
    PlaceButton(New RoundedTexturedButton(Me, "pressed:"), "Soft", "Rounded", 110, 24)
    PlaceButton(New RoundedRectButton(Me, "pressed:"), "Pill", "Filter", 110, 20)
    PlaceButton(New RecessedButton(Me, "pressed:"), "Recessed", "Recent", 110, 20)
    PlaceButton(New GradientButton(Me, "pressed:"), "Gradient", "+", 28, 24)
    PlaceButton(New RoundButton(Me, "pressed:"), "Round", "1", 32, 32)
    PlaceButton(New HelpButton(Me, "pressed:"), "Help", "", 26, 26)
    PlaceButton(New DisclosureTriangle(Me, "pressed:"), "Triangle", "", 20, 20)
    PlaceButton(New DisclosureButton(Me, "pressed:"), "Disclosure", "", 28, 24)
    PlaceButton(New CheckBox(Me, "pressed:"), "Check box", "Wrap lines", 110, 20)
    Dim mixed = New CheckBox(Me, "pressed:")
    mixed.AllowsMixedState = True
    mixed.State = -1
    PlaceButton(mixed, "Mixed", "Some", 110, 20)
    Dim first = New RadioButton(Me, "pressed:")
    first.State = 1
    PlaceButton(first, "Radio", "Left", 110, 20)
    PlaceButton(New RadioButton(Me, "pressed:"), "Radio", "Right", 110, 20)
    PlaceControl(New NSSegmentedControl(Me, "pressed:"), "Segments", 136, 24)
  End Sub

  Sub Fields()
    Dim field = New NSTextField(Me, "pressed:")
    field.StringValue = "Ada Lovelace"
    PlaceControl(field, "Text", 136, 24)
    Dim secret = New NSSecureTextField(Me, "pressed:")
    secret.StringValue = "secret"
    PlaceControl(secret, "Secure", 136, 24)
    PlaceControl(New NSSearchField(Me, "pressed:"), "Search", 136, 24)
    Dim tokens = New NSTokenField(Me, "pressed:")
    tokens.ObjectValue = Split("ink,pen", ",")
    PlaceControl(tokens, "Tokens", 136, 24)
    Dim combo = New NSComboBox(Me, "pressed:")
    combo.StringValue = "Basic"
    PlaceControl(combo, "Combo box", 136, 24)
    PlaceControl(New NSPopUpButton(Me, "pressed:"), "Pop-up", 136, 24)
    PlaceControl(New NSDatePicker(Me, "pressed:"), "Date", 136, 24)
    Dim path = New NSPathControl(Me, "pressed:")
    path.StringValue = "/usr/share"
    PlaceControl(path, "Path", 136, 24)
  End Sub

  Sub Values()
    Dim slider = New NSSlider(Me, "pressed:")
    slider.DoubleValue = 0.3
    PlaceControl(slider, "Slider", 136, 24)
    Dim knob = New CircularSlider(Me, "pressed:")
    knob.DoubleValue = 0.6
    PlaceControl(knob, "Knob", 40, 40)
    PlaceControl(New NSStepper(Me, "pressed:"), "Stepper", 20, 28)
    Dim level = New NSLevelIndicator(Me, "pressed:")
    level.IntegerValue = 4
    PlaceControl(level, "Level", 136, 18)
    PlaceControl(New NSColorWell(Me, "pressed:"), "Colour", 44, 24)
    Dim bar = New NSProgressIndicator
    bar.DoubleValue = 60
    Place(bar, "Progress", 136, 20)
    Place(New IndeterminateProgressIndicator, "Busy", 136, 20)
    Place(New CircularProgressIndicator, "Spinning", 24, 24)
  End Sub

  Sub Containers()
    Dim picture = New NSImageView(Me, "pressed:", "sample.png")
    PlaceControl(picture, "Image", 48, 48)
    Dim box = New NSBox
    box.Title = "Box"
    Place(box, "Box", 136, 46)
    Dim line = New HorizontalLine
    line.BoxType = 2
    Place(line, "Line", 136, 4)
    Dim scroll = New NSScrollView
    scroll.HasVerticalScroller = True
    Dim page = New NSView
    page.Frame = Rect(0, 0, 90, 120)
    scroll.DocumentView = page
    Place(scroll, "Scroll", 136, 46)
    Dim split = New VerticalSplitView
    split.Append(New NSView)
    split.Append(New NSView)
    Place(split, "Split", 136, 46)
    Place(New NSTabView, "Tabs", 136, 46)
    Place(New NSBrowser(Me, "pressed:"), "Browser", 136, 46)
    Place(New NSOutlineView(Me, "pressed:"), "Outline", 136, 46)
  End Sub

  Sub Open()
    names = New NSMutableArray
    window = New NSWindow
    window.Title = "Controls"
    window.ContentSize = Size(984, 812)
    Buttons()
    Fields()
    Values()
    Containers()
    log = New NSTextView(Me, "")
    log.Frame = Rect(16, 16, 952, 150)
    log.Editable = False
    log.AutoresizingMask = 2
    log.ToolTip = "What the controls sent"
    window.Append(log)
    window.RecalculateKeyViewLoop()
    window.CenterAndShow()
  End Sub
End Class

Sub Main
  Dim gallery As Gallery = New Gallery
  gallery.Open()
End Sub
