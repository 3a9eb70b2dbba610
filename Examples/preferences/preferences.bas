' Preferences: a window to read in, and a preferences window with three panes that says how.

Sub Main
  Dim reader As Reader = New Reader
  Property(Application, "mainMenu", MainMenu(reader))
  reader.Open(ReadString(NSBundle.ResourcePath() & "/lighthouse.txt"))
End Sub
