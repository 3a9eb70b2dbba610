' The menus; every command has a key.

Function NewMenu(main As NSMenu, title As String) As NSMenu
  Dim menu As NSMenu = New NSMenu(Nil, "", title)
  Property(menu, "autoenablesItems", True)
  main.AppendMenu(menu)
  Return menu
End Function

' An item for a command of the editor's own.
Function AddItem(menu As NSMenu, owner As SourceEditor, title As String, action As String, key As String) As NSMenuItem
  Dim item As NSMenuItem = New NSMenuItem(owner, "", title)
  item.ActionName = action
  item.KeyEquivalent = key
  menu.AppendMenuItem(item)
  Return item
End Function

' An item for a command of the view, by its name there.
Sub AddSourceItem(menu As NSMenu, owner As SourceEditor, title As String, command As String, key As String)
  Dim item As NSMenuItem = AddItem(menu, owner, title, "sourceCommand", key)
  item.RepresentedObject = command
End Sub

' An item for whoever has the keyboard.
Sub AddCommand(menu As NSMenu, title As String, action As String, key As String)
  Dim item As NSMenuItem = New NSMenuItem(Nil, "", title)
  Property(item, "action", action)
  item.KeyEquivalent = key
  menu.AppendMenuItem(item)
End Sub

Function MainMenu(owner As SourceEditor) As NSMenu
  Dim main As NSMenu = New NSMenu(Nil, "", "Editor")
  Dim menu As NSMenu = NewMenu(main, "File")
  AddItem(menu, owner, "New", "newFile", "n")
  AddItem(menu, owner, "Open…", "openFile", "o")
  owner.recentMenu = NewMenu(menu, "Open Recent")
  menu.AppendSeparator()
  AddItem(menu, owner, "Save", "saveFile", "s")
  AddItem(menu, owner, "Save As…", "saveFileAs", "S")
  menu.AppendSeparator()
  AddItem(menu, owner, "Print…", "printSource", "p")
  menu.AppendSeparator()
  AddItem(menu, owner, "Close", "closeFile", "w")
  AddItem(menu, owner, "Quit", "quit", "q")
  menu = NewMenu(main, "Edit")
  AddCommand(menu, "Undo", "undo:", "z")
  AddCommand(menu, "Redo", "redo:", "Z")
  menu.AppendSeparator()
  AddCommand(menu, "Cut", "cut:", "x")
  AddCommand(menu, "Copy", "copy:", "c")
  AddCommand(menu, "Paste", "paste:", "v")
  AddCommand(menu, "Select All", "selectAll:", "a")
  menu.AppendSeparator()
  AddItem(menu, owner, "Preferences…", "showPreferences", ",")
  menu = NewMenu(main, "Search")
  AddItem(menu, owner, "Find and Replace…", "showFind", "f")
  AddItem(menu, owner, "Find Next", "findNext", "g")
  AddItem(menu, owner, "Find Previous", "findPrevious", "G")
  AddItem(menu, owner, "Find the Selection", "useSelection", "e")
  menu.AppendSeparator()
  AddItem(menu, owner, "Replace and Find Next", "replaceOne", "r")
  AddItem(menu, owner, "Replace All", "replaceAll", "R")
  menu.AppendSeparator()
  AddItem(menu, owner, "Go to Line…", "goToLine", "l")
  menu = NewMenu(main, "Source")
  AddSourceItem(menu, owner, "Shift Right", "_shiftRight", "]")
  AddSourceItem(menu, owner, "Shift Left", "_shiftLeft", "[")
  menu.AppendSeparator()
  AddSourceItem(menu, owner, "Comment", "_comment", "k")
  AddSourceItem(menu, owner, "Uncomment", "_uncomment", "K")
  menu.AppendSeparator()
  AddSourceItem(menu, owner, "Upper Case", "_uppercase", "U")
  AddSourceItem(menu, owner, "Lower Case", "_lowercase", "u")
  menu.AppendSeparator()
  AddSourceItem(menu, owner, "Format", "_autoFormat", "I")
  AddItem(menu, owner, "Breakpoint", "toggleBreakpoint", "b")
  menu = NewMenu(main, "View")
  AddItem(menu, owner, "Bigger Text", "biggerText", "+")
  AddItem(menu, owner, "Smaller Text", "smallerText", "-")
  menu.AppendSeparator()
  AddItem(menu, owner, "Next Tab", "nextTab", Character(63277))
  AddItem(menu, owner, "Previous Tab", "previousTab", Character(63276))
  menu = NewMenu(main, "Help")
  AddItem(menu, owner, "The Editor by Keys", "showKeys", "")
  Property(Application, "helpMenu", menu)
  Return main
End Function
