' Every dialog by a button. What it gives appears in the log.

Class Dialogs
  Dim window As NSWindow
  Dim dialog As NSWindow
  Dim drawer As NSDrawer
  Dim extra As NSView
  Dim log As NSTextView
  Dim row As Integer

  Sub Say(what As String, answer)
    log.Append(what & ": " & CString(answer) & Character(10))
  End Sub

  Sub Message(sender)
    Say("message box", MsgBox("Message box", "It has one button."))
  End Sub

  Sub Alert(sender)
    Say("alert", AlertPanel("Save the changes?", "They are lost otherwise.", "Save", "Cancel", "Discard"))
  End Sub

  Sub Informational(sender)
    Say("informational", InformationalAlertPanel("Done", "All files were copied.", Nil, Nil, Nil))
  End Sub

  Sub Critical(sender)
    Say("critical", CriticalAlertPanel("Erase the disk?", "Nothing can be brought back.", "Erase", "Cancel", Nil))
  End Sub

  Sub Input(sender)
    Dim text = InputPanel("Your name", "It is shown in the title.", "Ada")
    If text = Nil Then text = "(nil)"
    Say("input", text)
  End Sub

  Sub AlertSheet(sender)
    BeginAlertSheet(Me, "Close the document?", "It has changes.", "a document", "Close", "Cancel", Nil)
  End Sub

  Sub AlertSheetDidEnd(alert, returnCode, contextInfo)
    Say("alert sheet of " & contextInfo, returnCode)
  End Sub

  Sub Sheet(sender)
    BeginSheet(Me, dialog, "the window")
  End Sub

  Sub SheetDidEnd(sheet, returnCode, contextInfo)
    dialog.Hide()
    Say("sheet of " & contextInfo, returnCode)
  End Sub

  Sub Modal(sender)
    Say("modal session", BeginModal(dialog))
    dialog.Hide()
  End Sub

  ' The one button of the dialog ends it as what it is shown as.
  Sub Done(sender)
    EndSheet(dialog, 5)
    EndModal(7)
  End Sub

  Sub SlideDrawer(sender)
    drawer.Toggle()
  End Sub

  Sub Expand(sender)
    If extra.Window = Nil Then
      BeginExpanding(extra, window)
    Else
      EndExpanding(extra, window)
    End If
  End Sub

  Sub OpenFile(sender)
    Say("open panel", NSOpenPanel.Run())
    Say("file", NSOpenPanel.FileName())
  End Sub

  Sub Place(title As String, action As String)
    Dim button = New PushButton(Me, action)
    button.Title = title
    button.Frame = Rect(16, 380 - row * 34, 130, 26)
    button.AutoresizingMask = 8
    window.Append(button)
    row = row + 1
  End Sub

  Sub Open()
    window = New NSWindow
    window.Title = "Dialogs"
    window.ContentSize = Size(520, 420)
    Place("Message", "message:")
    Place("Alert", "alert:")
    Place("Informational", "informational:")
    Place("Critical", "critical:")
    Place("Input", "input:")
    Place("Alert sheet", "alertSheet:")
    Place("Sheet", "sheet:")
    Place("Modal", "modal:")
    Place("Drawer", "slideDrawer:")
    Place("Expand", "expand:")
    Place("Open panel", "openFile:")
    log = New NSTextView
    log.Frame = Rect(162, 16, 342, 390)
    log.Editable = False
    log.AutoresizingMask = 10
    window.Append(log)
    dialog = New NSWindow
    dialog.Title = "A dialog"
    dialog.ContentSize = Size(220, 80)
    Dim done = New PushButton(Me, "done:")
    done.Title = "Done"
    done.Frame = Rect(60, 24, 100, 26)
    dialog.Append(done)
    drawer = New NSDrawer
    drawer.ParentWindow = window
    extra = New NSBox
    extra.Frame = Rect(0, 0, 520, 60)
    window.CenterAndShow()
  End Sub
End Class

Sub Main
  Dim dialogs As Dialogs = New Dialogs
  dialogs.Open()
End Sub
