' The window: a list of notes beside the text of one, and a toolbar with a search field.

Class NotesWindow
  Public Dim window As NSWindow
  Public Dim bar As NSToolbar
  Public Dim split As VerticalSplitView
  Public Dim sidebar As VLBackgroundView
  Public Dim table As NSTableView
  Public Dim total As Label
  Public Dim text As NSTextView
  Public Dim search As NSSearchField
  Public Dim book As Notebook = New Notebook
  Public Dim shown As NSMutableArray = New NSMutableArray
  Public Dim current As Note
  Public Dim fontSize As Double = 13
  Public Dim listing As Boolean = False

  Sub Build()
    window = New NSWindow
    window.ContentMinSize = Size(460, 260)
    window.ContentSize = Size(780, 480)
    BuildTable()
    BuildSidebar()
    text = New NSTextView(Me)
    text.RichText = False
    text.AllowsUndo = True
    text.ToolTip = "Text of the note"
    split = New VerticalSplitView
    split.Frame = Rect(0, 0, 780, 480)
    split.AutoresizingMask = 18
    Property(split, "dividerStyle", 2)
    Property(split, "delegate", Me)
    split.Append(sidebar)
    split.Append(text)
    window.Append(split)
    search = New NSSearchField(Me, "searchNotes:")
    search.Frame = Rect(0, 0, 200, 26)
    Property(search.Cell, "placeholderString", "Search")
    search.ToolTip = "Show the notes in which this occurs"
    bar = New NSToolbar(Me, "notes")
    bar.AllowsUserCustomization = True
    bar.AutosavesConfiguration = True
    window.SetToolbar(bar)
    window.Delegate = Me
    window.InitialFirstResponder = table
    window.RecalculateKeyViewLoop()
  End Sub

  Sub BuildTable()
    table = New NSTableView(Me, "")
    table.UsesAlternatingRowBackgroundColors = True
    table.RowHeight = 22
    table.DoubleActionName = "editNote"
    table.ToolTip = "Notes"
    AddColumn("title", "Title", 170, True)
    AddColumn("changed", "Changed", 130, False)
  End Sub

  ' The list, and below it how many notes there are, on a shade through which the window is seen.
  Sub BuildSidebar()
    sidebar = New VLBackgroundView
    sidebar.Frame = Rect(0, 0, 320, 480)
    sidebar.SetBackgroundGradient(New NSColor(0.5, 0.5, 0.55, 0.25), New NSColor(0.5, 0.5, 0.55, 0.05))
    table.Frame = Rect(8, 32, 304, 440)
    table.AutoresizingMask = 18
    sidebar.Append(table)
    total = New Label
    total.Frame = Rect(12, 6, 296, 20)
    total.AutoresizingMask = 2
    total.ToolTip = "How many notes are listed"
    sidebar.Append(total)
  End Sub

  ' The column is sorted by its own key; a first click sorts in that direction.
  Sub AddColumn(key As String, title As String, width As Integer, ascending As Boolean)
    Dim column As NSTableColumn = New NSTableColumn(Me, key, title)
    column.Width = width
    column.Editable = False
    Property(column, "sortDescriptorPrototype", SortedBy(key, ascending))
    table.Append(column)
  End Sub

  Function SortedBy(key As String, ascending As Boolean)
    Return PerformSelector2(NSSortDescriptor, "sortDescriptorWithKey:ascending:", key, ascending)
  End Function

  ' What the toolbar consists of.
  Function DefaultItems(bar) Alias "toolbarDefaultItemIdentifiers:"
    Return Split("newNote: deleteNote: NSToolbarFlexibleSpaceItem search", " ")
  End Function

  Function AllowedItems(bar) Alias "toolbarAllowedItemIdentifiers:"
    Return Split("newNote: deleteNote: biggerText: smallerText: search NSToolbarSpaceItem NSToolbarFlexibleSpaceItem NSToolbarSeparatorItem", " ")
  End Function

  Function ToolbarItem(bar, name As String, inserted As Boolean) Alias "toolbar:itemForItemIdentifier:willBeInsertedIntoToolbar:"
    If name = "newNote:" Then Return Labelled(New NSToolbarItem(Me, "newNote:"), "New Note", "Write a new note", "new.png")
    If name = "deleteNote:" Then Return Labelled(New NSToolbarItem(Me, "deleteNote:"), "Delete", "Delete this note", "delete.png")
    If name = "biggerText:" Then Return Labelled(New NSToolbarItem(Me, "biggerText:"), "Bigger", "Make the text bigger", "bigger.png")
    If name = "smallerText:" Then Return Labelled(New NSToolbarItem(Me, "smallerText:"), "Smaller", "Make the text smaller", "smaller.png")
    If name <> "search" Then Return Nil
    Dim item As NSToolbarItem = New NSToolbarItem(Me, "search")
    item.PaletteLabel = "Search"
    Property(item, "visibilityPriority", 1000)
    If inserted Then
      item.View = search
      item.MinSize = Size(120, 26)
      item.MaxSize = Size(220, 26)
    End If
    Return item
  End Function

  Function Labelled(item As NSToolbarItem, label As String, tip As String, picture As String) As NSToolbarItem
    item.Label = label
    item.PaletteLabel = label
    item.ToolTip = tip
    Dim image = New NSImage(picture)
    If image <> Nil Then item.Image = image
    Return item
  End Function

  Function ValidateToolbarItem(item As NSToolbarItem) As Boolean
    Return IsPossible(item.ItemIdentifier)
  End Function

  Function ValidateMenuItem(item As NSMenuItem) As Boolean
    Return IsPossible(Property(item, "action"))
  End Function

  Function IsPossible(action As String) As Boolean
    If action = "deleteNote:" Then Return current <> Nil
    If action = "editNote:" Then Return current <> Nil
    If action = "saveNotes:" Then Return book.edited
    If action = "biggerText:" Then Return fontSize < 36
    If action = "smallerText:" Then Return fontSize > 9
    Return True
  End Function

  ' What the list consists of.
  Function RowCount(table) As Integer Alias "numberOfRowsInTableView:"
    Return shown.Count
  End Function

  Function RowValue(table, column As NSTableColumn, row As Integer) Alias "tableView:objectValueForTableColumn:row:"
    If column.Identifier = "title" Then Return shown(row).title
    Return shown(row).DateText()
  End Function

  Sub SortingChanged(table, before) Alias "tableView:sortDescriptorsDidChange:"
    ListNotes()
  End Sub

  Sub TableViewSelectionDidChange(notification)
    If listing Then Return
    If table.SelectedRow < 0 Then
      ShowNote(Nil)
    Else
      ShowNote(shown(table.SelectedRow))
    End If
  End Sub

  ' Lists what the search field asks for, in the order of the list. The note that was shown stays if it is among them.
  Sub ListNotes()
    Dim sorting = Property(table, "sortDescriptors")(0)
    shown = book.Matching(search.StringValue, Property(sorting, "key"), Property(sorting, "ascending"))
    Dim note As Note = current
    If RowOf(note) < 0 Then note = Nil
    If note = Nil AndAlso shown.Count > 0 Then note = shown(0)
    FillTable(note)
    ShowNote(note)
  End Sub

  ' Shows the list anew, with a note selected.
  Sub FillTable(note As Note)
    listing = True
    table.ReloadData()
    table.SelectRow(RowOf(note))
    PerformSelector1(table, "scrollRowToVisible:", RowOf(note))
    listing = False
    total.StringValue = TotalText()
  End Sub

  Function TotalText() As String
    Dim count As Integer = book.notes.Count
    Dim words As String = CString(count) & " notes"
    If count = 1 Then words = "1 note"
    If shown.Count < count Then Return CString(shown.Count) & " of " & words
    Return words
  End Function

  Function RowOf(note As Note) As Integer
    For i = 0 To shown.Count - 1
      If shown(i) == note Then Return i
    Next
    Return -1
  End Function

  ' Shows the text of a note, or of none.
  Sub ShowNote(note As Note)
    If note == current Then Return
    current = note
    If note = Nil Then
      text.Value = ""
    Else
      text.Value = note.text
      text.GotoFirstCharacter()
    End If
    text.Font = PerformSelector1(NSFont, "systemFontOfSize:", fontSize)
    text.Editable = note <> Nil
    PerformSelector0(bar, "validateVisibleItems")
  End Sub

  ' Shows another notebook.
  Sub ShowBook(opened As Notebook)
    book = opened
    search.StringValue = ""
    current = Nil
    text.Value = ""
    text.Editable = False
    ListNotes()
    Refresh()
  End Sub

  ' The title tells which file it is and whether it has changes.
  Sub Refresh()
    window.Title = book.Name()
    Property(window, "documentEdited", book.edited)
    PerformSelector0(bar, "validateVisibleItems")
  End Sub

  ' Each key goes into the note; it finds its new place in the list and stays in sight even if the search says otherwise.
  Sub TextDidChange(notification)
    If current = Nil Then Return
    book.Change(current, text.Value)
    Dim sorting = Property(table, "sortDescriptors")(0)
    shown.RemoveObject(current)
    shown.Insert(current, book.Place(current, shown, Property(sorting, "key"), Property(sorting, "ascending")))
    FillTable(current)
    Refresh()
  End Sub

  ' Escape leads from the text back to the list.
  Function TextCommand(view, command As String) As Boolean Alias "textView:doCommandBySelector:"
    If command <> "cancelOperation:" Then Return False
    ShowList(view)
    Return True
  End Function

  ' The arrow down leads from the search field to the list.
  Function FieldCommand(field, editor, command As String) As Boolean Alias "control:textView:doCommandBySelector:"
    If command <> "moveDown:" Then Return False
    ShowList(field)
    Return True
  End Function

  Sub NewNote(sender)
    search.StringValue = ""
    Dim note As Note = book.Add()
    ListNotes()
    FillTable(note)
    ShowNote(note)
    Refresh()
    EditNote(sender)
  End Sub

  Sub EditNote(sender)
    If current <> Nil Then window.MakeFirstResponder(text)
  End Sub

  Sub ShowList(sender)
    window.MakeFirstResponder(table)
  End Sub

  Sub FindNotes(sender)
    window.MakeFirstResponder(search)
    search.SelectText()
  End Sub

  Sub SearchNotes(sender)
    ListNotes()
  End Sub

  Sub BiggerText(sender)
    SetFontSize(fontSize + 1)
  End Sub

  Sub SmallerText(sender)
    SetFontSize(fontSize - 1)
  End Sub

  Sub SetFontSize(size As Double)
    fontSize = Max(9.0, Min(36.0, size))
    text.Font = PerformSelector1(NSFont, "systemFontOfSize:", fontSize)
    PerformSelector0(bar, "validateVisibleItems")
  End Sub

  ' Neither side of the divider becomes too narrow to be used.
  Function LeastPosition(split, position As Double, divider As Integer) As Double Alias "splitView:constrainMinCoordinate:ofSubviewAt:"
    Return 180.0
  End Function

  Function MostPosition(split, position As Double, divider As Integer) As Double Alias "splitView:constrainMaxCoordinate:ofSubviewAt:"
    Return position - 200.0
  End Function

  ' A window that gets wider gives the room to the text.
  Sub ResizePanes(split, before As Size) Alias "splitView:resizeSubviewsWithOldSize:"
    Dim left As Double = sidebar.Width
    Dim right As Double = split.Width - left - Property(split, "dividerThickness")
    sidebar.Frame = Rect(0, 0, left, split.Height)
    text.Frame = Rect(split.Width - right, 0, right, split.Height)
  End Sub

  ' What a person set up is there the next time.
  Sub RestorePreferences()
    Dim usual As NSMutableDictionary = New NSMutableDictionary
    usual("FontSize") = 13.0
    usual("SortKey") = "changed"
    usual("SortAscending") = False
    usual("ListWidth") = 326.0
    NSUserDefaults.RegisterDefaults(usual)
    Dim sorting As NSMutableArray = New NSMutableArray
    sorting.Append(SortedBy(NSUserDefaults.Get("SortKey"), NSUserDefaults.Get("SortAscending")))
    Property(table, "sortDescriptors", sorting)
    SetFontSize(NSUserDefaults.Get("FontSize"))
    Dim frame As NSArray = NSUserDefaults.Get("WindowFrame")
    If frame = Nil Then
      window.Center()
    Else
      window.Frame = Rect(frame(0), frame(1), frame(2), frame(3))
    End If
    PerformSelector2(split, "setPosition:ofDividerAtIndex:", NSUserDefaults.Get("ListWidth"), 0)
  End Sub

  Sub KeepPreferences()
    Dim frame As NSMutableArray = New NSMutableArray
    frame.Append(window.X)
    frame.Append(window.Y)
    frame.Append(window.Width)
    frame.Append(window.Height)
    NSUserDefaults.Set("WindowFrame", frame)
    NSUserDefaults.Set("ListWidth", sidebar.Width)
    NSUserDefaults.Set("FontSize", fontSize)
    Dim sorting = Property(table, "sortDescriptors")(0)
    NSUserDefaults.Set("SortKey", Property(sorting, "key"))
    NSUserDefaults.Set("SortAscending", Property(sorting, "ascending"))
    NSUserDefaults.Set("File", book.path)
    NSUserDefaults.Synchronize()
  End Sub
End Class
