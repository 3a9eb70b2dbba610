' The window: a tab for each source, a line below that says where the caret is, and the commands that work on a source.

Class SourceWindow
  Public Dim window As NSWindow
  Public Dim tabs As NSTabView
  Public Dim message As Label
  Public Dim position As Label
  Public Dim sources As NSMutableArray = New NSMutableArray
  Public Dim language As Language = New Language
  Public Dim settings As Settings = New Settings
  Public Dim search As Search = New Search
  Public Dim findSheet As FindSheet = New FindSheet
  Public Dim preferences As Preferences = New Preferences
  Public Dim untitled As Integer = 0

  Sub Build()
    settings.Restore(preferences.PreferencesDefaults())
    window = New NSWindow
    window.ContentMinSize = Size(420, 260)
    window.ContentSize = Size(860, 620)
    tabs = New NSTabView
    tabs.Frame = Rect(0, 26, 860, 594)
    tabs.AutoresizingMask = 18
    Property(tabs, "delegate", Me)
    window.Append(tabs)
    message = New Label
    message.Frame = Rect(10, 3, 600, 20)
    message.AutoresizingMask = 2
    window.Append(message)
    position = New Label
    position.Frame = Rect(620, 3, 230, 20)
    position.AutoresizingMask = 1
    position.Alignment = 1
    window.Append(position)
    window.Delegate = Me
    findSheet.Build(Me, search)
    preferences.owner = Me
    PerformSelector1(preferences, "initWithWindowNibName:", "Preferences")
    If settings.frame = Nil Then
      window.Center()
    Else
      window.Frame = Rect(settings.frame(0), settings.frame(1), settings.frame(2), settings.frame(3))
    End If
  End Sub

  ' The source that is seen; Nil when there is none.
  Function Current() As Source
    Return Property(tabs, "selectedTabViewItem.identifier")
  End Function

  Function AddSource() As Source
    Dim added As Source = New Source
    untitled = untitled + 1
    added.title = "Untitled"
    If untitled > 1 Then added.title = "Untitled " & CString(untitled)
    added.Build(Me, language, settings)
    sources.Append(added)
    PerformSelector1(tabs, "addTabViewItem:", added.item)
    Return added
  End Function

  Sub RemoveSource(removed As Source)
    PerformSelector0(removed.view, "stopCompletionTimer")
    sources.RemoveObject(removed)
    PerformSelector1(tabs, "removeTabViewItem:", removed.item)
    ShowSource(Current())
  End Sub

  ' Brings a source to the front, with the keyboard in it.
  Sub ShowSource(shown As Source)
    If shown = Nil Then Return
    PerformSelector1(tabs, "selectTabViewItem:", shown.item)
    window.MakeFirstResponder(shown.view)
    Refresh()
  End Sub

  Sub DidSelectTab(tabs, item) Alias "tabView:didSelectTabViewItem:"
    Say("")
    Refresh()
  End Sub

  ' The title, its mark of changes and the line below.
  Sub Refresh()
    Dim shown As Source = Current()
    If shown = Nil Then Return
    window.Title = shown.Name()
    Property(window, "documentEdited", shown.edited)
    position.StringValue = "Line " & CString(shown.LineNumber()) & ", column " & CString(shown.Column())
  End Sub

  Sub Say(what As String)
    message.StringValue = what
  End Sub

  Sub SourceChanged(changed As Source)
    Refresh()
  End Sub

  Sub SourceMoved(moved As Source)
    If moved == Current() Then
      Say("")
      Refresh()
    End If
  End Sub

  Sub SettingsChanged(sender)
    settings.Adopt()
    For i = 0 To sources.Count - 1
      sources(i).Dress()
    Next
  End Sub

  ' A menu item says by which name the view knows its command.
  Sub SourceCommand(sender As NSMenuItem)
    PerformSelector0(Current().view, sender.RepresentedObject)
  End Sub

  Sub ToggleBreakpoint(sender)
    Current().view.ToggleBreakpoint()
    Dim count As Integer = Current().view.Breakpoints.Count
    If count = 1 Then
      Say("1 breakpoint.")
    Else
      Say(CString(count) & " breakpoints.")
    End If
  End Sub

  ' Finding.
  Sub ShowFind(sender)
    findSheet.Show(Current().view)
  End Sub

  Sub FindNext(sender)
    Report(search.FindNext(Current().view))
  End Sub

  Sub FindPrevious(sender)
    Report(search.FindPrevious(Current().view))
  End Sub

  Sub ReplaceOne(sender)
    Report(search.ReplaceOne(Current().view))
  End Sub

  Sub ReplaceAll(sender)
    Replaced(search.ReplaceAll(Current().view))
  End Sub

  Sub Report(found As Boolean)
    If found Then Return
    Beep()
    Say("“" & search.needle & "” was not found.")
  End Sub

  Sub Replaced(count As Integer)
    If count = 1 Then
      Say("1 occurrence replaced.")
    Else
      Say(CString(count) & " occurrences replaced.")
    End If
  End Sub

  Sub UseSelection(sender)
    search.needle = Current().view.SelectedText
  End Sub

  Sub GoToLine(sender)
    Dim lines As Integer = Count(Current().view.Value, Character(10), True) + 1
    Dim answer = InputPanel("Go to line", "A number from 1 to " & CString(lines) & ".", CString(Current().LineNumber()))
    If answer = Nil Then Return
    Dim line As Integer = CInteger(Trim(answer))
    If line >= 1 AndAlso line <= lines Then
      Current().view.GotoLine(line)
    Else
      Beep()
      Say("There is no line “" & answer & "”.")
    End If
  End Sub

  ' Looks.
  Sub BiggerText(sender)
    settings.SetFontSize(settings.fontSize + 1)
  End Sub

  Sub SmallerText(sender)
    settings.SetFontSize(settings.fontSize - 1)
  End Sub

  Sub ShowPreferences(sender)
    PerformSelector1(preferences, "showWindow:", sender)
  End Sub

  ' From the last tab to the first one, and back.
  Sub NextTab(sender)
    GoBy(1)
  End Sub

  Sub PreviousTab(sender)
    GoBy(sources.Count - 1)
  End Sub

  Sub GoBy(tabCount As Integer)
    Dim index As Integer = PerformSelector1(tabs, "indexOfTabViewItem:", Current().item)
    ShowSource(sources((index + tabCount) Mod sources.Count))
  End Sub

  Sub PrintSource(sender)
    Current().view.PrintShowingPrintPanel("Editor", Current().Name(), True)
  End Sub

  Sub KeepSettings()
    Dim frame As NSMutableArray = New NSMutableArray
    frame.Append(window.X)
    frame.Append(window.Y)
    frame.Append(window.Width)
    frame.Append(window.Height)
    settings.frame = frame
    settings.Keep()
  End Sub
End Class
