' What a person set up, which is there the next time.

Class Settings
  Public Dim fontSize As Double = 12
  Public Dim formats As Boolean = True
  Public Dim margin As Boolean = True
  Public Dim recent As NSMutableArray = New NSMutableArray
  Public Dim frame As NSArray

  Sub Restore()
    Dim usual As NSMutableDictionary = New NSMutableDictionary
    usual("EditorFontSize") = 12.0
    usual("EditorFormats") = True
    usual("EditorMargin") = True
    usual("EditorRecentFiles") = New NSMutableArray
    NSUserDefaults.RegisterDefaults(usual)
    fontSize = NSUserDefaults.Get("EditorFontSize")
    formats = NSUserDefaults.Get("EditorFormats")
    margin = NSUserDefaults.Get("EditorMargin")
    frame = NSUserDefaults.Get("EditorFrame")
    Dim kept As NSArray = NSUserDefaults.Get("EditorRecentFiles")
    recent = New NSMutableArray
    For i = 0 To kept.Count - 1
      recent.Append(kept(i))
    Next
  End Sub

  Sub Keep()
    NSUserDefaults.Set("EditorFontSize", fontSize)
    NSUserDefaults.Set("EditorFormats", formats)
    NSUserDefaults.Set("EditorMargin", margin)
    NSUserDefaults.Set("EditorRecentFiles", recent)
    If frame <> Nil Then NSUserDefaults.Set("EditorFrame", frame)
    NSUserDefaults.Synchronize()
  End Sub

  ' The file that was opened last comes first; there are ten at most.
  Sub Remember(path As String)
    If recent.Contains(path) Then recent.RemoveObject(path)
    recent.Insert(path, 0)
    If recent.Count > 10 Then recent.Remove(10)
    Keep()
  End Sub

  Sub SetFontSize(size As Double)
    fontSize = Max(6.0, Min(48.0, size))
  End Sub
End Class
