' The sheet that asks what to find and what to put in its place.

Class FindSheet
  Public Dim owner
  Public Dim search As Search
  Public Dim view As VLTextView
  Public Dim window As NSWindow
  Public Dim needle As NSTextField
  Public Dim replacement As NSTextField
  Public Dim ignoresCase As CheckBox
  Public Dim selectedOnly As CheckBox
  Public Dim wholeWords As CheckBox
  Public Dim message As Label

  Sub Build(editor, sought As Search)
    owner = editor
    search = sought
    window = New NSPanel
    window.Title = "Find"
    window.ContentSize = Size(500, 190)
    needle = AddField("Find:", 150)
    replacement = AddField("Replace with:", 116)
    ignoresCase = AddBox("Ignore case", 124, 110)
    wholeWords = AddBox("Whole words", 234, 110)
    selectedOnly = AddBox("Selected text only", 344, 140)
    message = New Label
    message.Frame = Rect(16, 52, 468, 20)
    window.Append(message)
    AddButton("Next", "findNext:", 398, 86, Character(13))
    AddButton("Previous", "findPrevious:", 306, 86, "")
    AddButton("Replace All", "replaceAll:", 188, 112, "")
    AddButton("Close", "leave:", 16, 86, Character(27))
    window.InitialFirstResponder = needle
    window.RecalculateKeyViewLoop()
  End Sub

  Function AddField(caption As String, y As Integer) As NSTextField
    Dim words As Label = New Label
    words.StringValue = caption
    words.Frame = Rect(16, y, 104, 22)
    window.Append(words)
    Dim field As NSTextField = New NSTextField
    field.Frame = Rect(124, y, 360, 26)
    field.ToolTip = caption
    window.Append(field)
    Return field
  End Function

  Function AddBox(caption As String, x As Integer, width As Integer) As CheckBox
    Dim box As CheckBox = New CheckBox
    box.Title = caption
    box.Frame = Rect(x, 84, width, 22)
    window.Append(box)
    Return box
  End Function

  Sub AddButton(caption As String, action As String, x As Integer, width As Integer, key As String)
    Dim button As PushButton = New PushButton(Me, "")
    Property(button, "target", Me)
    Property(button, "action", action)
    button.Title = caption
    button.Frame = Rect(x, 14, width, 28)
    button.KeyEquivalent = key
    window.Append(button)
  End Sub

  Sub Show(shown As VLTextView)
    view = shown
    needle.StringValue = search.needle
    replacement.StringValue = search.replacement
    ignoresCase.State = search.ignoresCase
    selectedOnly.State = search.selectedOnly
    wholeWords.State = search.wholeWords
    message.StringValue = ""
    BeginSheet(Me, window, "find")
    needle.SelectText()
  End Sub

  Sub Take()
    search.needle = needle.StringValue
    search.replacement = replacement.StringValue
    search.ignoresCase = ignoresCase.State = 1
    search.selectedOnly = selectedOnly.State = 1
    search.wholeWords = wholeWords.State = 1
  End Sub

  ' What was found is seen once the sheet has gone; it stays when there is nothing to see.
  Sub Answer(found As Boolean)
    If found Then
      EndSheet(window, 1)
    Else
      message.StringValue = "“" & search.needle & "” was not found."
      needle.SelectText()
    End If
  End Sub

  Sub FindNext(sender)
    Take()
    Answer(search.FindNext(view))
  End Sub

  Sub FindPrevious(sender)
    Take()
    Answer(search.FindPrevious(view))
  End Sub

  Sub ReplaceAll(sender)
    Take()
    Dim count As Integer = search.ReplaceAll(view)
    If count > 0 Then PerformSelector1(owner, "replaced:", count)
    Answer(count > 0)
  End Sub

  ' What stands in the fields is there the next time, too.
  Sub Leave(sender)
    Take()
    EndSheet(window, 0)
  End Sub

  Sub SheetDidEnd(sheet, code As Integer, what As String) Alias "sheetDidEnd:returnCode:contextInfo:"
    window.Hide()
  End Sub
End Class
