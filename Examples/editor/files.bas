' What a person does with files, and the questions that come before something is lost.

Class SourceEditor Inherits SourceWindow
  Public Dim recentMenu As NSMenu
  Public Dim unanswered As NSMutableArray = New NSMutableArray
  Public Dim closing As Source
  Public Dim saving As Source

  ' Shows the window with the files of a list, or an empty source.
  Sub Open(words As String, paths As NSMutableArray)
    language.Read(words)
    Build()
    FillRecentMenu()
    ShowSource(AddSource())
    window.Show()
    For i = 0 To paths.Count - 1
      OpenPath(paths(i))
    Next
  End Sub

  ' A file that is open already is brought to the front. One that cannot be read changes nothing of what is shown.
  Function OpenPath(path As String) As Boolean
    Dim shown As Source = SourceOf(path)
    If shown <> Nil Then
      ShowSource(shown)
      Return True
    End If
    Dim reason As String = WhyUnreadable(path)
    Dim before As Source = Current()
    Dim opened As Source = AddSource()
    Try
      opened.Load(path)
    Catch failure
      RemoveSource(opened)
      TellOfFailure("“" & FileName(path) & "” cannot be opened.", reason)
      Return False
    End Try
    If before <> Nil Then
      If before.IsUntouched() Then RemoveSource(before)
    End If
    ShowSource(opened)
    RememberFile(path)
    Return True
  End Function

  ' The source that shows a file, Nil when none does.
  Function SourceOf(path As String) As Source
    For i = 0 To sources.Count - 1
      If sources(i).path = path Then Return sources(i)
    Next
    Return Nil
  End Function

  ' What is wrong with a file, should it be no source.
  Function WhyUnreadable(path As String) As String
    Dim files As NSFileManager = New NSFileManager
    If Not files.Exists(path) Then Return "There is no such file."
    If files.ExistsDirectory(path) Then Return "It is a folder. Choose a file that lies in it."
    If Not files.IsReadable(path) Then Return "You may not read it. Ask its owner."
    Return "It is not text in UTF-8, which sources are written in. Nothing in it was changed."
  End Function

  Sub TellOfFailure(what As String, advice As String)
    BeginAlertSheet(Me, what, advice, "report", "OK", Nil, Nil)
  End Sub

  ' The files that were open lately.
  Sub RememberFile(path As String)
    settings.Remember(path)
    FillRecentMenu()
  End Sub

  Sub FillRecentMenu()
    If recentMenu = Nil Then Return
    recentMenu.RemoveAll()
    For i = 0 To settings.recent.Count - 1
      Dim item As NSMenuItem = New NSMenuItem(Me, "openRecent:", FileName(settings.recent(i)))
      item.RepresentedObject = settings.recent(i)
      recentMenu.AppendMenuItem(item)
    Next
    recentMenu.AppendSeparator()
    recentMenu.AppendMenuItem(New NSMenuItem(Me, "clearRecent:", "Clear Menu"))
  End Sub

  ' The commands of the File menu.
  Sub NewFile(sender)
    ShowSource(AddSource())
  End Sub

  Sub OpenFile(sender)
    NSOpenPanel.AllowsMultipleSelection = True
    If Not NSOpenPanel.Run() Then Return
    Dim paths As NSArray = NSOpenPanel.FileNames()
    For i = 0 To paths.Count - 1
      OpenPath(paths(i))
    Next
  End Sub

  ' A file that is gone leaves the menu.
  Sub OpenRecent(sender As NSMenuItem)
    Dim path As String = sender.RepresentedObject
    If OpenPath(path) Then Return
    settings.recent.RemoveObject(path)
    FillRecentMenu()
  End Sub

  Sub ClearRecent(sender)
    settings.recent.RemoveAll()
    FillRecentMenu()
  End Sub

  Sub SaveFile(sender)
    SaveThen(Current(), "nothing")
  End Sub

  Sub SaveFileAs(sender)
    AskForFile(Current(), "nothing")
  End Sub

  Sub CloseFile(sender)
    If preferences.CloseIfKey() Then Return
    If sources.Count = 1 Then
      PerformSelector1(window, "performClose:", Me)
      Return
    End If
    closing = Current()
    unanswered.RemoveAll()
    If closing.edited Then unanswered.Append(closing)
    AskNext("tab")
  End Sub

  Sub Quit(sender)
    Application.Terminate(sender)
  End Sub

  ' Whether there are changes anywhere; they are what AskNext asks about.
  Function HasChanges() As Boolean
    unanswered.RemoveAll()
    For i = 0 To sources.Count - 1
      If sources(i).edited Then unanswered.Append(sources(i))
    Next
    Return unanswered.Count > 0
  End Function

  ' Asks about one source after the other, and does what was wanted when nothing can be lost by it any more.
  Sub AskNext(what As String)
    If unanswered.Count = 0 Then
      Proceed(what)
      Return
    End If
    ShowSource(unanswered(0))
    BeginAlertSheet(Me, "Save the changes to “" & Current().Name() & "”?", "They are lost if you do not save them.", what, "Save", "Cancel", "Don’t Save")
  End Sub

  ' The answer to any of the questions, told apart by what they were about.
  Sub AlertSheetDidEnd(alert, code As Integer, what As String) Alias "alertSheetDidEnd:returnCode:contextInfo:"
    If what = "report" Then Return
    If code = 1000 Then
      SaveThen(unanswered(0), what)
    ElseIf code = 1002 Then
      GoOn(what)
    Else
      Give(what, False)
    End If
  End Sub

  ' To the next question, after the sheet that asked has gone.
  Sub GoOn(what As String)
    If what = "nothing" Then Return
    unanswered.Remove(0)
    PerformSelectorNextRunLoop(Me, "askNext:", what)
  End Sub

  Sub SaveThen(saved As Source, what As String)
    If saved.path = "" Then
      AskForFile(saved, what)
    ElseIf SaveTo(saved, saved.path) Then
      GoOn(what)
    Else
      Give(what, False)
    End If
  End Sub

  ' Two tabs with one file would overwrite each other.
  Function SaveTo(saved As Source, path As String) As Boolean
    Dim shown As Source = SourceOf(path)
    If shown <> Nil AndAlso shown <> saved Then
      TellOfFailure("“" & FileName(path) & "” cannot be saved.", "The file is open in another tab. Close that tab first, or choose another name. Your text is still here.")
      Return False
    End If
    If Not saved.Save(path) Then
      TellOfFailure("“" & FileName(path) & "” cannot be saved.", "Choose a folder in which you may write, on a disk with room. Your text is still here.")
      Return False
    End If
    Say("Saved.")
    RememberFile(path)
    Return True
  End Function

  Sub AskForFile(saved As Source, what As String)
    saving = saved
    Dim panel As NSSavePanel = PerformSelector0(NSSavePanel, "savePanel")
    panel.Title = "Save Source"
    Property(panel, "requiredFileType", "bas")
    panel.BeginSheetForDirectory(Nil, saved.Name(), window, Me, "savePanelDidEnd:returnCode:contextInfo:", what)
  End Sub

  Sub SavePanelDidEnd(panel, code As Integer, what As String) Alias "savePanelDidEnd:returnCode:contextInfo:"
    Dim saved As Boolean = False
    If code = 1 Then saved = SaveTo(saving, CString(Property(panel, "filename")))
    saving = Nil
    If saved Then
      GoOn(what)
    Else
      Give(what, False)
    End If
  End Sub

  Sub Proceed(what As String)
    If what = "tab" Then
      RemoveSource(closing)
      closing = Nil
    ElseIf what = "window" Then
      ' The program ends with its window, and need not ask again.
      For i = 0 To sources.Count - 1
        sources(i).edited = False
      Next
      window.Close()
    Else
      Give(what, True)
    End If
  End Sub

  ' The application waits to hear whether it may end. A question that was not answered loses nothing.
  Sub Give(what As String, answer As Boolean)
    unanswered.RemoveAll()
    If what = "quit" Then PerformSelector1(Application, "replyToApplicationShouldTerminate:", answer)
  End Sub

  ' What the menus, the window and the application ask.
  Function ValidateMenuItem(item As NSMenuItem) As Boolean
    Dim action As String = Property(item, "action")
    If action = "clearRecent:" Then Return settings.recent.Count > 0
    If action = "saveFile:" Then Return Current().edited OrElse Current().path = ""
    If action = "printSource:" Then Return RespondsToSelector(Current().view, "PrintShowingPrintPanel:::")
    If action = "nextTab:" OrElse action = "previousTab:" Then Return sources.Count > 1
    If action = "useSelection:" Then Return Current().view.SelectedText <> ""
    If Contains(" findNext: findPrevious: replaceOne: replaceAll: ", " " & action & " ", True) Then Return search.needle <> ""
    Return True
  End Function

  Function WindowShouldClose(sender) As Boolean
    If Not HasChanges() Then Return True
    AskNext("window")
    Return False
  End Function

  Sub WindowWillClose(notification)
    KeepSettings()
    PerformSelector0(preferences, "close")
  End Sub

  ' 0 means no, 1 yes, 2 that the answer comes later.
  Function ApplicationShouldTerminate(sender) As Integer
    If Property(window, "attachedSheet") <> Nil Then Return 0
    If Not HasChanges() Then Return 1
    window.Show()
    AskNext("quit")
    Return 2
  End Function

  ' The files that were named when the program was started are open now; the first one comes first.
  Sub ApplicationDidFinishLaunching(notification)
    If sources.Count > 0 Then ShowSource(sources(0))
  End Sub

  Sub ApplicationWillTerminate(notification)
    KeepSettings()
  End Sub

  Function ApplicationOpenFile(application, path As String) As Boolean Alias "application:openFile:"
    Return OpenPath(path)
  End Function

  Sub ShowKeys(sender)
    InformationalAlertPanel("The editor by keys", "Escape offers every name that fits. Behind a dot come the members, behind a parenthesis the arguments, behind “As” the types; the arrows choose one and Return takes it. Tab shifts the selected lines. Ctrl+Page Down and Ctrl+Page Up go from tab to tab.", Nil, Nil, Nil)
  End Sub
End Class
