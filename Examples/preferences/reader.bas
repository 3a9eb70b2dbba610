' A window in which a text is read. How it looks and what it does follows from the settings alone.

Class Reader
  Public Dim window As NSWindow
  Public Dim header As VLBackgroundView
  Public Dim greeting As Label
  Public Dim clock As Label
  Public Dim text As NSTextView
  Public Dim ticker As NSTimer
  Public Dim preferences As ReaderPreferences = New ReaderPreferences

  Sub Open(story As String)
    NSUserDefaults.RegisterDefaults(preferences.PreferencesDefaults())
    preferences.owner = Me
    PerformSelector1(preferences, "initWithWindowNibName:", "Preferences")
    Build()
    text.Value = story
    text.GotoFirstCharacter()
    Dim frame As NSArray = NSUserDefaults.Get("Frame")
    If frame = Nil OrElse Not NSUserDefaults.Get("KeepsFrame") Then
      window.Center()
    Else
      window.Frame = Rect(frame(0), frame(1), frame(2), frame(3))
    End If
    Dress()
    Tick()
    window.Show()
  End Sub

  Sub Build()
    window = New NSWindow
    window.Title = "Reader"
    window.ContentMinSize = Size(320, 200)
    window.ContentSize = Size(560, 420)
    header = New VLBackgroundView
    header.AutoresizingMask = 10
    greeting = New Label
    greeting.Frame = Rect(16, 10, 330, 22)
    header.Append(greeting)
    clock = New Label
    clock.Alignment = 1
    clock.AutoresizingMask = 1
    header.Append(clock)
    window.Append(header)
    text = New NSTextView(Me)
    text.RichText = False
    text.Editable = False
    text.AutoresizingMask = 18
    text.ToolTip = "Text"
    window.Append(text)
    window.Delegate = Me
    window.InitialFirstResponder = text
  End Sub

  ' Everything looks as the settings say. The head is there when there is something to be said in it.
  Sub Dress()
    Dim ink As NSColor = KeptColor("TextColor")
    Dim paper As NSColor = KeptColor("PaperColor")
    Dim size As Double = NSUserDefaults.Get("FontSize")
    Dim width As Double = window.ContentView.Width
    Dim height As Double = window.ContentView.Height
    Dim room As Integer = 0
    If NSUserDefaults.Get("Greets") OrElse NSUserDefaults.Get("ShowsClock") Then room = 42
    header.Visible = room > 0
    header.Frame = Rect(0, height - room, width, room)
    header.SetBackgroundGradient(paper.BlendedColor(0.12, ink), paper.BlendedColor(0.04, ink))
    clock.Frame = Rect(width - 156, 10, 140, 22)
    greeting.TextColor = ink
    clock.TextColor = ink
    text.Frame = Rect(0, 0, width, height - room)
    text.Font = PerformSelector1(NSFont, Split("systemFontOfSize: boldSystemFontOfSize: userFixedPitchFontOfSize:", " ")(NSUserDefaults.Get("Typeface")), size)
    Property(text, "textColor", ink)
    Property(text, "backgroundColor", paper)
    ShowTime()
  End Sub

  Sub ShowTime()
    greeting.StringValue = ""
    clock.StringValue = ""
    If NSUserDefaults.Get("Greets") Then greeting.StringValue = GreetingText()
    If NSUserDefaults.Get("ShowsClock") Then
      Dim format As String = "%H:%M"
      If NSUserDefaults.Get("ShowsSeconds") Then format = "%H:%M:%S"
      clock.StringValue = TimeText(format)
    End If
  End Sub

  Function TimeText(format As String) As String
    Return PerformSelector0(NSDate, "date").DescriptionWithCalendarFormat(format, Nil, Nil)
  End Function

  Function GreetingText() As String
    Dim hour As Integer = CInteger(TimeText("%H"))
    Dim words As String = "Good evening"
    If hour < 18 Then words = "Good afternoon"
    If hour < 12 Then words = "Good morning"
    If NSUserDefaults.Get("Name") = "" Then Return words & "."
    Return words & ", " & NSUserDefaults.Get("Name") & "."
  End Function

  ' A timer fires once, so each tick makes the next one.
  Sub Tick()
    ShowTime()
    ticker = New NSTimer(Me, "tick", 1.0)
  End Sub

  Sub ShowPreferences(sender)
    PerformSelector1(preferences, "showWindow:", sender)
  End Sub

  Sub BiggerText(sender)
    NSUserDefaults.Set("FontSize", Min(32.0, NSUserDefaults.Get("FontSize") + 2))
  End Sub

  Sub SmallerText(sender)
    NSUserDefaults.Set("FontSize", Max(10.0, NSUserDefaults.Get("FontSize") - 2))
  End Sub

  Sub CloseReader(sender)
    If preferences.CloseIfKey() Then Return
    PerformSelector1(window, "performClose:", sender)
  End Sub

  ' The program ends with its window, which may ask before.
  Sub Quit(sender)
    PerformSelector1(window, "performClose:", sender)
  End Sub

  Function WindowShouldClose(sender) As Boolean
    If Not NSUserDefaults.Get("AsksToClose") Then Return True
    BeginAlertSheet(Me, "Close the reader?", "The preferences say that you want to be asked.", "close", "Close", "Cancel", Nil)
    Return False
  End Function

  Sub AlertSheetDidEnd(alert, code As Integer, what As String) Alias "alertSheetDidEnd:returnCode:contextInfo:"
    If code = 1000 Then window.Close()
  End Sub

  ' The settings are written when the program ends; the last window to be closed ends it.
  Sub WindowWillClose(notification)
    Dim frame As NSMutableArray = New NSMutableArray
    frame.Append(window.X)
    frame.Append(window.Y)
    frame.Append(window.Width)
    frame.Append(window.Height)
    NSUserDefaults.Set("Frame", frame)
    ticker.Stop()
    PerformSelector0(preferences, "close")
  End Sub
End Class

Sub AddItem(menu As NSMenu, owner As Reader, title As String, action As String, key As String)
  Dim item As NSMenuItem = New NSMenuItem(owner, title)
  item.ActionName = action
  item.KeyEquivalent = key
  menu.AppendMenuItem(item)
End Sub

Function MainMenu(owner As Reader) As NSMenu
  Dim main As NSMenu = New NSMenu("Reader")
  Dim menu As NSMenu = New NSMenu("File")
  main.AppendMenu(menu)
  AddItem(menu, owner, "Preferences…", "showPreferences", ",")
  menu.AppendSeparator()
  AddItem(menu, owner, "Close", "closeReader", "w")
  AddItem(menu, owner, "Quit", "quit", "q")
  menu = New NSMenu("View")
  main.AppendMenu(menu)
  AddItem(menu, owner, "Bigger Text", "biggerText", "+")
  AddItem(menu, owner, "Smaller Text", "smallerText", "-")
  Return main
End Function
