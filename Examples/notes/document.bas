' What a person does with files of notes, and the questions that come before something is lost.

Class NotesDocument Inherits NotesWindow
  Public Dim waiting As String = ""

  ' The last file is open again; where there is none, or it cannot be read, the window has no notes yet.
  Sub Open()
    Build()
    RestorePreferences()
    ShowBook(New Notebook)
    window.Show()
    Dim last = NSUserDefaults.Get("File")
    If last = Nil Then
      ShowWelcome()
    ElseIf last <> "" AndAlso NSFileManager.Exists(CString(last)) Then
      OpenFile(last)
    End If
  End Sub

  ' Who never saw the program finds some notes in it, in no file yet.
  Sub ShowWelcome()
    Dim opened As Notebook = New Notebook
    Dim path As String = NSBundle.ResourcePath() & "/welcome.notes"
    If NSFileManager.Exists(path) Then
      opened.Read(path)
      opened.path = ""
    End If
    ShowBook(opened)
  End Sub

  ' A file that cannot be read changes nothing of what is shown.
  Sub OpenFile(path As String)
    Dim opened As Notebook = New Notebook
    Try
      opened.Read(path)
    Catch failure
      Report("“" & FileName(path) & "” cannot be opened.", "It is damaged, or no file of notes. Nothing in it was changed.")
      Return
    End Try
    ShowBook(opened)
  End Sub

  Function SaveFile(path As String) As Boolean
    If Not book.Save(path) Then
      Report("“" & FileName(path) & "” cannot be saved.", "Choose a folder in which you may write, on a disk with room. Your notes are still here.")
      Return False
    End If
    Refresh()
    Return True
  End Function

  Sub Report(message As String, advice As String)
    BeginAlertSheet(Me, message, advice, "report", "OK", Nil, Nil)
  End Sub

  ' The commands of the File menu.
  Sub NewFile(sender)
    AskThen("new")
  End Sub

  Sub OpenNotes(sender)
    AskThen("open")
  End Sub

  Sub SaveNotes(sender)
    SaveThen("nothing")
  End Sub

  Sub SaveNotesAs(sender)
    AskForFile("nothing")
  End Sub

  Sub CloseNotes(sender)
    PerformSelector1(window, "performClose:", sender)
  End Sub

  Sub Quit(sender)
    Application.Terminate(sender)
  End Sub

  Sub DeleteNote(sender)
    If current <> Nil Then BeginAlertSheet(Me, "Delete “" & current.title & "”?", "A note that was deleted cannot be brought back.", "delete", "Delete", "Cancel", Nil)
  End Sub

  ' Asks about changes, if there are any, before something is done that would lose them.
  Sub AskThen(what As String)
    If book.edited Then
      BeginAlertSheet(Me, "Save the changes to “" & book.Name() & "”?", "They are lost if you do not save them.", what, "Save", "Cancel", "Don’t Save")
    Else
      Proceed(what)
    End If
  End Sub

  ' The answer to any of the questions, told apart by what they were about.
  Sub AlertSheetDidEnd(alert, code As Integer, what As String) Alias "alertSheetDidEnd:returnCode:contextInfo:"
    If what = "report" Then Return
    If what = "delete" Then
      If code = 1000 Then RemoveNote()
    ElseIf code = 1000 Then
      SaveThen(what)
    ElseIf code = 1002 Then
      Proceed(what)
    Else
      Give(what, False)
    End If
  End Sub

  ' Takes the note out, and shows the one that takes its place.
  Sub RemoveNote()
    Dim row As Integer = RowOf(current)
    book.Remove(current)
    shown.RemoveObject(current)
    row = Min(row, shown.Count - 1)
    Dim note As Note = Nil
    If row >= 0 Then note = shown(row)
    FillTable(note)
    ShowNote(note)
    Refresh()
    ShowList(Nil)
  End Sub

  Sub SaveThen(what As String)
    If book.path = "" Then
      AskForFile(what)
    ElseIf SaveFile(book.path) Then
      Proceed(what)
    Else
      Give(what, False)
    End If
  End Sub

  Sub AskForFile(what As String)
    Dim panel As NSSavePanel = PerformSelector0(NSSavePanel, "savePanel")
    panel.Title = "Save Notes"
    Property(panel, "requiredFileType", "notes")
    panel.BeginSheetForDirectory(Nil, book.Name(), window, Me, "savePanelDidEnd:returnCode:contextInfo:", what)
  End Sub

  Sub SavePanelDidEnd(panel, code As Integer, what As String) Alias "savePanelDidEnd:returnCode:contextInfo:"
    Dim saved As Boolean = False
    If code = 1 Then saved = SaveFile(CString(Property(panel, "filename")))
    If saved Then
      Proceed(what)
    Else
      Give(what, False)
    End If
  End Sub

  ' Does what a person wanted, when nothing can be lost by it any more; after the sheet that asked has gone.
  Sub Proceed(what As String)
    PerformSelectorNextRunLoop(Me, "proceedNow:", what)
  End Sub

  Sub ProceedNow(what As String)
    If what = "new" Then
      ShowBook(New Notebook)
    ElseIf what = "open" Then
      ChooseFile()
    ElseIf what = "read" Then
      OpenFile(waiting)
    ElseIf what = "close" Then
      KeepPreferences()
      book.edited = False
      window.Close()
    Else
      Give(what, True)
    End If
  End Sub

  ' The application waits to hear whether it may end.
  Sub Give(what As String, answer As Boolean)
    If what = "quit" Then PerformSelector1(Application, "replyToApplicationShouldTerminate:", answer)
  End Sub

  Sub ChooseFile()
    Dim types As NSMutableArray = New NSMutableArray
    types.Append("notes")
    NSOpenPanel.Types = types
    If NSOpenPanel.Run() Then OpenFile(NSOpenPanel.FileName())
  End Sub

  ' What the window and the application ask.
  Function WindowShouldClose(sender) As Boolean
    If Not book.edited Then Return True
    AskThen("close")
    Return False
  End Function

  Sub WindowWillClose(notification)
    KeepPreferences()
  End Sub

  ' 0 means no, 1 yes, 2 that the answer comes later.
  Function ApplicationShouldTerminate(sender) As Integer
    If Property(window, "attachedSheet") <> Nil Then Return 0
    If Not book.edited Then Return 1
    window.Show()
    AskThen("quit")
    Return 2
  End Function

  Sub ApplicationWillTerminate(notification)
    KeepPreferences()
  End Sub

  Function ApplicationOpenFile(application, path As String) As Boolean Alias "application:openFile:"
    waiting = path
    AskThen("read")
    Return True
  End Function

  Sub ShowKeys(sender)
    InformationalAlertPanel("Notes by keys", "In the list, the arrows choose a note and Return leads into its text. Escape leads from the text back to the list, and clears the search field. Tab goes round.", Nil, Nil, Nil)
  End Sub
End Class
