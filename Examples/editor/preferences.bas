' The window in which a person sets the editor up. The controls are bound to the settings, so that each change acts at
' once in every source.

Class Preferences Inherits VLPreferences
  Public Dim owner
  Public Dim panes As NSMutableArray = New NSMutableArray
  Public Dim size As Label

  Function PreferencesItemIdentifiers() As NSArray
    Return Split("Text Editing", " ")
  End Function

  Function PreferencesItems() As NSMutableArray
    If panes.Count = 0 Then
      BuildText(AddPane(90))
      BuildEditing(AddPane(90))
      ShowSize()
    End If
    Return panes
  End Function

  Function PreferencesDefaults() As NSMutableDictionary
    Dim usual As NSMutableDictionary = New NSMutableDictionary
    usual("EditorFontSize") = 12.0
    usual("EditorMargin") = True
    usual("EditorFormats") = True
    usual("EditorCompletes") = True
    Return usual
  End Function

  Sub PreferencesChanged(key As String)
    If panes.Count > 0 Then ShowSize()
    PerformSelector1(owner, "settingsChanged:", Me)
  End Sub

  Sub BuildText(pane As NSView)
    Dim words As Label = New Label
    words.StringValue = "Size of the text:"
    words.Frame = Rect(24, 50, 124, 22)
    pane.Append(words)
    size = New Label
    size.Alignment = 1
    size.Frame = Rect(148, 50, 48, 22)
    pane.Append(size)
    Dim stepper As NSStepper = New NSStepper
    stepper.Frame = Rect(204, 47, 22, 28)
    stepper.ToolTip = "Size of the text"
    Property(stepper, "minValue", 6)
    Property(stepper, "maxValue", 48)
    Property(stepper, "valueWraps", False)
    Bind(stepper, "doubleValue", NSUserDefaults, "EditorFontSize", Nil)
    pane.Append(stepper)
    AddBox(pane, "Show line numbers and breakpoints", "EditorMargin", 16)
  End Sub

  Sub BuildEditing(pane As NSView)
    AddBox(pane, "Format lines while they are typed", "EditorFormats", 50)
    AddBox(pane, "Offer names while they are typed", "EditorCompletes", 16)
  End Sub

  Function AddPane(height As Integer) As NSView
    Dim pane As NSView = New NSView
    pane.Frame = Rect(0, 0, 380, height)
    panes.Append(pane)
    Return pane
  End Function

  Sub AddBox(pane As NSView, caption As String, key As String, y As Integer)
    Dim box As CheckBox = New CheckBox
    box.Title = caption
    box.Frame = Rect(22, y, 334, 24)
    Bind(box, "state", NSUserDefaults, key, Nil)
    pane.Append(box)
  End Sub

  Sub ShowSize()
    size.StringValue = CString(CInteger(NSUserDefaults.Get("EditorFontSize"))) & " pt"
  End Sub

  ' Close means the window that has the keyboard. Whether it was this one.
  Function CloseIfKey() As Boolean
    If panes.Count = 0 Then Return False
    If Not PerformSelector0(Me, "window").IsKeyWindow Then Return False
    PerformSelector0(Me, "close")
    Return True
  End Function
End Class
