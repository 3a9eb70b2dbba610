' Notes: a window with all that a real one has: menus, a toolbar, a list that is searched and sorted, files, questions
' before something is lost, settings that are there the next time, everything by keys.

Sub Main
  Dim document As NotesDocument = New NotesDocument
  Property(Application, "delegate", document)
  Property(Application, "mainMenu", MainMenu(document))
  document.Open()
End Sub
