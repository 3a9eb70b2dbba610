' A table of a million rows, none of which is kept: each is reckoned from its place when the table asks for it. Sorted by
' clicks on the titles; names, check boxes and pop-up cells can be changed, and only the changes are kept.

Class Register
  Const Count = 1000003
  Dim window As NSWindow
  Dim table As NSTableView
  Dim status As NSTextField
  Dim changes As NSMutableDictionary
  Dim byName As Boolean
  Dim descending As Boolean

  ' The number that stands in a row. Names are numbers times 618034 in a ring of prime size, so the row of a name is
  ' found by the number that undoes it; an order of a million rows costs nothing.
  Function NumberAt(row As Integer) As Integer
    Dim place As Integer = row
    If descending Then place = Count - 1 - row
    If byName Then Return place * 905372 Mod Count
    Return place
  End Function

  Function Syllable(index As Integer) As String
    Return At("bcdfghjklmnpqrstvwxyz", index \ 5) & At("aeiou", index Mod 5)
  End Function

  Function NameOf(number As Integer) As String
    Dim code As Integer = number * 618034 Mod Count
    Return Syllable(code \ 11025) & Syllable(code \ 105 Mod 105) & Syllable(code Mod 105)
  End Function

  ' Where a change of a cell is kept.
  Function KeyOf(column, number As Integer) As String
    Return column.Identifier & " " & number
  End Function

  Function RowCount(table) As Integer Alias "numberOfRowsInTableView:"
    Return Count
  End Function

  Function Value(table, column, row As Integer) Alias "tableView:objectValueForTableColumn:row:"
    Dim number As Integer = NumberAt(row)
    If column.Identifier = "number" Then Return number
    Dim key As String = KeyOf(column, number)
    If changes.Contains(key) Then Return changes(key)
    If column.Identifier = "name" Then Return NameOf(number)
    Return 0
  End Function

  Sub SetValue(table, value, column, row As Integer) Alias "tableView:setObjectValue:forTableColumn:row:"
    changes(KeyOf(column, NumberAt(row))) = value
    status.StringValue = changes.Count & " cells changed"
  End Sub

  Sub SortChanged(table, before) Alias "tableView:sortDescriptorsDidChange:"
    Dim order = Property(table, "sortDescriptors")(0)
    byName = Property(order, "key") = "name"
    descending = Not Property(order, "ascending")
    table.ReloadData()
  End Sub

  Sub SelectionChanged(note) Alias "tableViewSelectionDidChange:"
    If table.SelectedRow < 0 Then
      status.StringValue = "No row selected"
    Else
      status.StringValue = "Row " & table.SelectedRow & " of " & table.Count
    End If
  End Sub

  Function ToolTip(table, column, row As Integer) Alias "tableView:toolTipForTableColumn:row:"
    Return NameOf(NumberAt(row)) & ", number " & NumberAt(row)
  End Function

  ' A double click where nothing can be edited.
  Sub Opened(sender)
    status.StringValue = "Opened " & NameOf(NumberAt(table.ClickedRow))
  End Sub

  Sub AddColumn(identifier As String, title As String, width As Integer, cell)
    Dim column = New NSTableColumn(Me, "", identifier, title)
    column.Width = width
    If cell <> Nothing Then column.DataCell = cell
    table.Append(column)
  End Sub

  Sub SortedBy(index As Integer, key As String)
    Dim order = PerformSelector2(NSSortDescriptor, "sortDescriptorWithKey:ascending:", key, True)
    Property(Property(table, "tableColumns")(index), "sortDescriptorPrototype", order)
  End Sub

  Sub Open()
    changes = New NSMutableDictionary
    window = New NSWindow
    window.Title = "A million rows"
    window.ContentSize = Size(520, 420)
    table = New NSTableView(Me, "")
    table.Frame = Rect(16, 44, 488, 360)
    table.AutoresizingMask = 18
    table.UsesAlternatingRowBackgroundColors = True
    table.GridStyleMask = 1
    table.RowHeight = 22
    table.DoubleActionName = "opened"
    Property(table, "allowsMultipleSelection", True)
    Dim number = New NSCell
    Property(number, "alignment", 1)
    AddColumn("number", "Number", 90, number)
    AddColumn("name", "Name", 180, Nothing)
    Dim box = New NSButtonCell
    box.Title = ""
    AddColumn("done", "Done", 60, box)
    Dim weight = New NSPopUpButtonCell
    For i = 0 To 2
      PerformSelector1(weight, "addItemWithTitle:", Split("Low Normal High", " ")(i))
    Next
    AddColumn("weight", "Weight", 110, weight)
    SortedBy(0, "number")
    SortedBy(1, "name")
    window.Append(table)
    status = New Label
    status.Frame = Rect(16, 14, 488, 20)
    status.AutoresizingMask = 2
    status.StringValue = Count & " rows"
    window.Append(status)
    window.CenterAndShow()
  End Sub
End Class

Sub Main
  Dim register As Register = New Register
  register.Open()
End Sub
