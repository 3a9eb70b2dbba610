' The gallery: every kind of control in one window. What each of them sends appears in the log at the bottom.

Class Gallery
  Dim window As NSWindow
  Dim log As NSTextView
  Dim names As NSMutableArray
  Dim x As Integer
  Dim y As Integer

  ' What every control calls: its name and its value go into the log.
  Sub Pressed(sender)
    log.Append(names(sender.Tag) & ": " & sender.StringValue & Character(10))
  End Sub

  ' Begins a column under a heading.
  Sub Group(title As String, left As Integer)
    x = left
    y = 700
    Dim heading = New Label
    heading.AttributedStringValue = "<b>" & title & "</b>"
    heading.Frame = Rect(x, y, 230, 20)
    window.Append(heading)
    y = y - 12
  End Sub

  ' Puts a view beside its name, below the one before; width and height are the view's.
  Sub Place(view, name As String, width As Integer, height As Integer)
    Dim room As Integer = Max(height, 24)
    y = y - room
    Dim caption = New Label
    caption.StringValue = name
    caption.Frame = Rect(x, y + room / 2 - 9, 82, 18)
    caption.Alignment = 1
    window.Append(caption)
    view.Frame = Rect(x + 92, y + (room - height) / 2, width, height)
    If view.ToolTip = "" Then view.ToolTip = name
    window.Append(view)
    y = y - 16
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
    Group("Buttons", 20)
    Dim save = New PushButton(Me, "pressed:")
    save.KeyEquivlanet = Character(13)
    PlaceButton(save, "Default", "Save", 120, 26)
    PlaceButton(New PushButton(Me, "pressed:"), "Push", "Cancel", 120, 26)
    PlaceButton(New BevelButton(Me, "pressed:"), "Bevel", "Bevel", 120, 28)
    PlaceButton(New SquareButton(Me, "pressed:"), "Square", "Square", 120, 26)
    PlaceButton(New TexturedButton(Me, "pressed:"), "Textured", "Textured", 120, 26)
    PlaceButton(New RoundedTexturedButton(Me, "pressed:"), "Soft", "Rounded", 120, 24)
    PlaceButton(New RoundedRectButton(Me, "pressed:"), "Pill", "Filter", 120, 22)
    PlaceButton(New RecessedButton(Me, "pressed:"), "Recessed", "Recent", 120, 22)
    PlaceButton(New GradientButton(Me, "pressed:"), "Gradient", "+", 28, 26)
    PlaceButton(New RoundButton(Me, "pressed:"), "Round", "1", 32, 32)
    PlaceButton(New HelpButton(Me, "pressed:"), "Help", "", 26, 26)
    PlaceButton(New DisclosureTriangle(Me, "pressed:"), "Triangle", "", 20, 20)
    PlaceButton(New DisclosureButton(Me, "pressed:"), "Disclosure", "", 28, 24)
  End Sub

  Sub Choices()
    Group("Choices and text", 260)
    PlaceButton(New CheckBox(Me, "pressed:"), "Check box", "Wrap lines", 150, 20)
    Dim mixed = New CheckBox(Me, "pressed:")
    mixed.AllowsMixedState = True
    mixed.State = -1
    PlaceButton(mixed, "Mixed", "Some of them", 150, 20)
    Dim first = New RadioButton(Me, "pressed:")
    first.State = 1
    PlaceButton(first, "Radio", "Left", 150, 20)
    PlaceButton(New RadioButton(Me, "pressed:"), "Radio", "Right", 150, 20)
    Dim segments = New NSSegmentedControl(Me, "pressed:")
    For i = 0 To 2
      PerformSelector2(segments, "setLabel:forSegment:", Split("Day Week Month", " ")(i), i)
    Next
    Property(segments, "selectedSegment", 1)
    PlaceControl(segments, "Segments", 170, 24)
    Dim menu = New NSPopUpButton(Me, "pressed:")
    menu.Append("Landscape")
    menu.Append("Portrait")
    PlaceControl(menu, "Pop-up", 170, 26)
    Dim combo = New NSComboBox(Me, "pressed:")
    PerformSelector1(combo, "addItemsWithObjectValues:", Split("Basic,C,Pascal", ","))
    combo.StringValue = "Basic"
    PlaceControl(combo, "Combo box", 170, 26)
    Dim field = New NSTextField(Me, "pressed:")
    field.StringValue = "Ada Lovelace"
    PlaceControl(field, "Text", 170, 26)
    Dim rich = New NSTextField(Me, "pressed:")
    rich.AttributedStringValue = "<b>Bold</b>, <u>lined</u>, <font color='#c0392b'>red</font>"
    PlaceControl(rich, "Rich text", 170, 26)
    Dim secret = New NSSecureTextField(Me, "pressed:")
    secret.StringValue = "secret"
    PlaceControl(secret, "Secure", 170, 26)
    Dim search = New NSSearchField(Me, "pressed:")
    search.StringValue = "notes"
    PlaceControl(search, "Search", 170, 26)
    Dim tokens = New NSTokenField(Me, "pressed:")
    tokens.ObjectValue = Split("ink,pen,paper", ",")
    PlaceControl(tokens, "Tokens", 170, 26)
    PlaceControl(New NSDatePicker(Me, "pressed:"), "Date", 170, 26)
  End Sub

  Sub Values()
    Group("Values", 550)
    Dim slider = New NSSlider(Me, "pressed:")
    slider.DoubleValue = 0.3
    PlaceControl(slider, "Slider", 150, 24)
    Dim ticks = New NSSlider(Me, "pressed:")
    Property(ticks, "numberOfTickMarks", 6)
    ticks.DoubleValue = 0.6
    PlaceControl(ticks, "Steps", 150, 28)
    Dim knob = New CircularSlider(Me, "pressed:")
    knob.DoubleValue = 0.6
    PlaceControl(knob, "Knob", 40, 40)
    PlaceControl(New NSStepper(Me, "pressed:"), "Stepper", 20, 28)
    Dim relevance = New NSLevelIndicator(Me, "pressed:")
    Property(relevance, "levelIndicatorStyle", 0)
    Property(relevance, "maxValue", 100)
    relevance.DoubleValue = 60
    PlaceControl(relevance, "Relevance", 150, 18)
    Dim capacity = New NSLevelIndicator(Me, "pressed:")
    Property(capacity, "levelIndicatorStyle", 1)
    Property(capacity, "maxValue", 100)
    capacity.DoubleValue = 60
    PlaceControl(capacity, "Capacity", 150, 18)
    Dim level = New NSLevelIndicator(Me, "pressed:")
    Property(level, "levelIndicatorStyle", 2)
    Property(level, "maxValue", 5)
    level.DoubleValue = 4
    PlaceControl(level, "Level", 150, 18)
    Dim rating = New NSLevelIndicator(Me, "pressed:")
    Property(rating, "levelIndicatorStyle", 3)
    Property(rating, "maxValue", 5)
    rating.DoubleValue = 3
    PlaceControl(rating, "Rating", 150, 18)
    Dim paint = New NSColorWell(Me, "pressed:")
    Property(paint, "color", PerformSelector0(NSColor, "orangeColor"))
    PlaceControl(paint, "Colour", 44, 26)
    Dim bar = New NSProgressIndicator
    bar.DoubleValue = 60
    Place(bar, "Progress", 150, 20)
    Place(New IndeterminateProgressIndicator, "Busy", 150, 20)
    Place(New CircularProgressIndicator, "Spinning", 26, 26)
    Dim path = New NSPathControl(Me, "pressed:")
    path.StringValue = "/usr/share"
    PlaceControl(path, "Path", 150, 24)
  End Sub

  Sub Containers()
    Group("Views", 822)
    Dim picture = New NSImageView(Me, "pressed:", "sample.png")
    PlaceControl(picture, "Image", 48, 48)
    Dim box = New NSBox
    box.Title = "Box"
    Place(box, "Box", 170, 46)
    Dim line = New HorizontalLine
    line.BoxType = 2
    Place(line, "Line", 170, 4)
    Dim scroll = New NSScrollView
    scroll.HasVerticalScroller = True
    scroll.HasHorizontalScroller = True
    Property(scroll, "borderType", 2)
    Dim page = New NSImageView(Me, "", "sample.png")
    page.ImageScaling = 3
    page.Frame = Rect(0, 0, 220, 220)
    scroll.DocumentView = page
    Place(scroll, "Scroll", 170, 70)
    Dim split = New VerticalSplitView
    Dim left = New Label
    left.StringValue = "Left"
    Dim right = New Label
    right.StringValue = "Right"
    left.Frame = Rect(0, 0, 80, 30)
    right.Frame = Rect(90, 0, 80, 30)
    split.Frame = Rect(0, 0, 170, 30)
    split.Append(left)
    split.Append(right)
    Place(split, "Split", 170, 30)
    Dim tabs = New NSTabView
    Dim general = New NSTabViewItem
    Property(general, "label", "General")
    PerformSelector1(tabs, "addTabViewItem:", general)
    Dim colours = New NSTabViewItem
    Property(colours, "label", "Colours")
    PerformSelector1(tabs, "addTabViewItem:", colours)
    Place(tabs, "Tabs", 170, 64)
    Dim browser = New NSBrowser(Me, "pressed:")
    Property(browser, "titled", False)
    browser.Delegate = Me
    PlaceControl(browser, "Browser", 170, 76)
    Dim outline = New NSOutlineView(Me, "pressed:")
    Dim column = New NSTableColumn
    Property(column, "title", "Name")
    PerformSelector1(outline, "addTableColumn:", column)
    Property(outline, "outlineTableColumn", column)
    Property(outline, "dataSource", Me)
    PlaceControl(outline, "Outline", 170, 84)
    PerformSelector1(outline, "expandItem:", Nothing)
  End Sub

  ' What the outline shows.
  Function ChildCount(outline, item) As Integer Alias "outlineView:numberOfChildrenOfItem:"
    If item = "Fruit" Then Return 3
    If item = Nothing Then Return 2
    Return 0
  End Function

  Function Child(outline, index As Integer, item) Alias "outlineView:child:ofItem:"
    If item = Nothing Then Return Split("Fruit Bread", " ")(index)
    Return Split("Apple Cherry Pear", " ")(index)
  End Function

  Function IsGroup(outline, item) As Boolean Alias "outlineView:isItemExpandable:"
    Return item = "Fruit"
  End Function

  Function ItemText(outline, column, item) Alias "outlineView:objectValueForTableColumn:byItem:"
    Return item
  End Function

  ' What the browser shows.
  Function RowCount(browser, column As Integer) As Integer Alias "browser:numberOfRowsInColumn:"
    Return 3 - column
  End Function

  Sub WillDisplay(browser, cell, row As Integer, column As Integer) Alias "browser:willDisplayCell:atRow:column:"
    cell.StringValue = Split("Plants Animals Stones", " ")(row)
    Property(cell, "leaf", column > 0)
  End Sub

  Sub Open()
    names = New NSMutableArray
    window = New NSWindow
    window.Title = "Controls"
    window.ContentSize = Size(1104, 732)
    Buttons()
    Choices()
    Values()
    Containers()
    log = New NSTextView(Me, "")
    log.Editable = False
    log.ToolTip = "What the controls sent"
    Dim page = New NSScrollView
    page.HasVerticalScroller = True
    page.AutohidesScrollers = True
    Property(page, "borderType", 2)
    page.Frame = Rect(20, 16, 1064, 84)
    page.AutoresizingMask = 2
    page.DocumentView = log
    window.Append(page)
    window.RecalculateKeyViewLoop()
    window.CenterAndShow()
  End Sub
End Class

Sub Main
  Dim gallery As Gallery = New Gallery
  gallery.Open()
End Sub
