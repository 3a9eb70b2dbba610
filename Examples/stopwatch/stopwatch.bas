' A stopwatch with laps, worked by its buttons or by the keyboard: space starts and stops, L takes a lap, R resets.

Class Stopwatch
  Dim window As NSWindow
  Dim display As NSTextField
  Dim startButton As NSButton
  Dim lapButton As NSButton
  Dim resetButton As NSButton
  Dim lapLabels As NSMutableArray
  Dim laps As NSMutableArray
  Dim before As Double = 0.0
  Dim startedAt As Double = 0.0
  Dim ticker As NSTimer
  Dim isRunning As Boolean = False

  Function Elapsed() As Double
    If isRunning Then
      Return before + Seconds() - startedAt
    End If
    Return before
  End Function

  ' "01:02.34"
  Function TimeText(time As Double) As String
    Dim hundredths As Integer = CMath.Floor(time * 100)
    Dim minutes As String = "" & hundredths \ 6000
    Dim rest As String = FormatDecimal((hundredths Mod 6000) / 100.0, False, 2)
    If Len(minutes) < 2 Then
      minutes = "0" & minutes
    End If
    Return minutes & ":" & Right("00" & rest, 5)
  End Function

  Sub Refresh()
    display.StringValue = TimeText(Elapsed())
    startButton.Title = "Start"
    If isRunning Then
      startButton.Title = "Stop"
    End If
    lapButton.Enabled = isRunning
    resetButton.Enabled = Not isRunning And before > 0
    Dim shown As Integer = Min(laps.Count, lapLabels.Count)
    For i = 0 To lapLabels.Count - 1
      lapLabels(i).StringValue = ""
      If i < shown Then
        Dim number As Integer = laps.Count - i
        lapLabels(i).StringValue = "Lap " & number & "   " & TimeText(laps(number - 1))
      End If
    Next
  End Sub

  ' A timer fires once, so each tick makes the next one.
  Sub Tick()
    Refresh()
    If isRunning Then
      ticker = New NSTimer(Me, "tick", 0.03)
    End If
  End Sub

  Sub StartStop()
    ticker.Stop()
    If isRunning Then
      before = Elapsed()
      isRunning = False
    Else
      startedAt = Seconds()
      isRunning = True
    End If
    Tick()
  End Sub

  Sub Lap()
    If isRunning Then
      laps.Append(Elapsed())
    End If
    Refresh()
  End Sub

  Sub Reset()
    If Not isRunning Then
      before = 0.0
      laps = New NSMutableArray
    End If
    Refresh()
  End Sub

  Function Button(title As String, key As String, action As String, x As Integer) As NSButton
    Dim made As NSButton = New PushButton(Me, action)
    made.Title = title
    made.KeyEquivalent = key
    made.Frame = Rect(x, 150, 96, 32)
    window.Append(made)
    Return made
  End Function

  Function Label(frame, size As Integer) As NSTextField
    Dim made As NSTextField = New Label
    made.Font = NSFont.UserFixedPitchFontOfSize(size)
    made.Alignment = 2
    made.Frame = frame
    window.Append(made)
    Return made
  End Function

  Sub Open()
    window = New NSWindow
    window.Title = "Stopwatch"
    window.StyleMask = 7
    window.Frame = Rect(0, 0, 340, 282)
    laps = New NSMutableArray
    lapLabels = New NSMutableArray
    display = Label(Rect(10, 195, 320, 56), 44)
    startButton = Button("Start", " ", "startStop", 18)
    lapButton = Button("Lap", "l", "lap", 122)
    resetButton = Button("Reset", "r", "reset", 226)
    For i = 0 To 4
      lapLabels.Append(Label(Rect(10, 112 - i * 25, 320, 20), 15))
    Next
    Refresh()
    window.CenterAndShow()
  End Sub

  ' The scene of the picture: two laps, then stopped.
  Sub WorkItself()
    StartStop()
    Wait(0.4)
    Lap()
    Wait(0.3)
    Lap()
    Wait(0.2)
    StartStop()
  End Sub
End Class

Sub Main
  Dim watch As Stopwatch = New Stopwatch
  watch.Open()
  PictureWhenAsked(watch.window, watch, "workItself")
End Sub
