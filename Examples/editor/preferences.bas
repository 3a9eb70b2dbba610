' The sheet in which a person sets the editor up.

Class Preferences
  Public Dim owner
  Public Dim settings As Settings
  Public Dim window As NSWindow
  Public Dim fontSizes As NSPopUpButton
  Public Dim formats As CheckBox
  Public Dim margin As CheckBox

  Sub Build(editor, kept As Settings)
    owner = editor
    settings = kept
    window = New NSPanel
    window.Title = "Preferences"
    window.ContentSize = Size(360, 160)
    Dim words As Label = New Label
    words.StringValue = "Size of the text:"
    words.Frame = Rect(16, 120, 120, 22)
    window.Append(words)
    fontSizes = New NSPopUpButton
    fontSizes.Frame = Rect(144, 118, 90, 28)
    fontSizes.ToolTip = "Size of the text"
    For i = 6 To 48
      fontSizes.Append(CString(i))
    Next
    window.Append(fontSizes)
    formats = AddBox("Format lines while they are typed", 88)
    margin = AddBox("Show line numbers and breakpoints", 62)
    AddButton("OK", "done:", 262, Character(13))
    AddButton("Cancel", "leave:", 176, Character(27))
    window.InitialFirstResponder = fontSizes
    window.RecalculateKeyViewLoop()
  End Sub

  Function AddBox(caption As String, y As Integer) As CheckBox
    Dim box As CheckBox = New CheckBox
    box.Title = caption
    box.Frame = Rect(16, y, 328, 22)
    window.Append(box)
    Return box
  End Function

  Sub AddButton(caption As String, action As String, x As Integer, key As String)
    Dim button As PushButton = New PushButton(Me, "")
    Property(button, "target", Me)
    Property(button, "action", action)
    button.Title = caption
    button.Frame = Rect(x, 14, 82, 28)
    button.KeyEquivalent = key
    window.Append(button)
  End Sub

  Sub Show()
    fontSizes.Select(Round(settings.fontSize, 0) - 6)
    formats.State = settings.formats
    margin.State = settings.margin
    BeginSheet(Me, window, "preferences")
  End Sub

  Sub Done(sender)
    settings.SetFontSize(fontSizes.Selected + 6)
    settings.formats = formats.State = 1
    settings.margin = margin.State = 1
    settings.Keep()
    PerformSelector1(owner, "settingsChanged:", Me)
    EndSheet(window, 1)
  End Sub

  Sub Leave(sender)
    EndSheet(window, 0)
  End Sub

  Sub SheetDidEnd(sheet, code As Integer, what As String) Alias "sheetDidEnd:returnCode:contextInfo:"
    window.Hide()
  End Sub
End Class
