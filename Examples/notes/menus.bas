' The main menu.

Function NewMenu(main As NSMenu, title As String) As NSMenu
  Dim menu As NSMenu = New NSMenu(title)
  Property(menu, "autoenablesItems", True)
  main.AppendMenu(menu)
  Return menu
End Function

' An item that the document answers. A capital letter as its key comes with Shift.
Sub AddItem(menu As NSMenu, owner As NotesDocument, title As String, action As String, key As String)
  Dim item As NSMenuItem = New NSMenuItem(owner, title)
  item.ActionName = action
  item.KeyEquivalent = key
  menu.AppendMenuItem(item)
End Sub

' An item that whatever has the keyboard answers.
Sub AddCommand(menu As NSMenu, title As String, action As String, key As String, tag As Integer)
  Dim item As NSMenuItem = New NSMenuItem(Nil, title)
  Property(item, "action", action)
  item.KeyEquivalent = key
  item.Tag = tag
  menu.AppendMenuItem(item)
End Sub

Function MainMenu(owner As NotesDocument) As NSMenu
  Dim main As NSMenu = New NSMenu("Notes")
  Dim menu As NSMenu = NewMenu(main, "File")
  AddItem(menu, owner, "New", "newFile", "N")
  AddItem(menu, owner, "Open…", "openNotes", "o")
  menu.AppendSeparator()
  AddItem(menu, owner, "Save", "saveNotes", "s")
  AddItem(menu, owner, "Save As…", "saveNotesAs", "S")
  menu.AppendSeparator()
  AddItem(menu, owner, "Close", "closeNotes", "w")
  AddItem(menu, owner, "Quit", "quit", "q")
  menu = NewMenu(main, "Edit")
  AddCommand(menu, "Undo", "undo:", "z", 0)
  AddCommand(menu, "Redo", "redo:", "Z", 0)
  menu.AppendSeparator()
  AddCommand(menu, "Cut", "cut:", "x", 0)
  AddCommand(menu, "Copy", "copy:", "c", 0)
  AddCommand(menu, "Paste", "paste:", "v", 0)
  AddCommand(menu, "Select All", "selectAll:", "a", 0)
  menu.AppendSeparator()
  AddCommand(menu, "Find in Note…", "performFindPanelAction:", "f", 1)
  AddCommand(menu, "Find Next", "performFindPanelAction:", "g", 2)
  AddCommand(menu, "Find Previous", "performFindPanelAction:", "G", 3)
  AddItem(menu, owner, "Search Notes", "findNotes", "F")
  menu = NewMenu(main, "Note")
  AddItem(menu, owner, "New Note", "newNote", "n")
  AddItem(menu, owner, "Edit Note", "editNote", "t")
  AddItem(menu, owner, "Show List", "showList", "l")
  menu.AppendSeparator()
  AddItem(menu, owner, "Delete Note…", "deleteNote", Character(127))
  menu = NewMenu(main, "View")
  AddItem(menu, owner, "Bigger Text", "biggerText", "+")
  AddItem(menu, owner, "Smaller Text", "smallerText", "-")
  menu.AppendSeparator()
  AddCommand(menu, "Customize Toolbar…", "runToolbarCustomizationPalette:", "", 0)
  menu = NewMenu(main, "Help")
  AddItem(menu, owner, "Notes by Keys", "showKeys", "")
  Property(Application, "helpMenu", menu)
  Return main
End Function
