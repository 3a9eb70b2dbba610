' What a person set up, which is there the next time.

Class Settings
  Public Dim fontSize As Double = 12
  Public Dim formats As Boolean = True
  Public Dim completes As Boolean = True
  Public Dim margin As Boolean = True
  Public Dim recent As NSMutableArray = New NSMutableArray
  Public Dim frame As NSArray

  Sub Restore(usual As NSMutableDictionary)
    usual("EditorRecentFiles") = New NSMutableArray
    NSUserDefaults.RegisterDefaults(usual)
    Adopt()
    frame = NSUserDefaults.Get("EditorFrame")
    Dim kept As NSArray = NSUserDefaults.Get("EditorRecentFiles")
    recent = New NSMutableArray
    For i = 0 To kept.Count - 1
      recent.Append(kept(i))
    Next
  End Sub

  ' What the preferences window changes.
  Sub Adopt()
    fontSize = NSUserDefaults.Get("EditorFontSize")
    formats = NSUserDefaults.Get("EditorFormats")
    completes = NSUserDefaults.Get("EditorCompletes")
    margin = NSUserDefaults.Get("EditorMargin")
  End Sub

  Sub Keep()
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
    NSUserDefaults.Set("EditorFontSize", Max(6.0, Min(48.0, size)))
  End Sub
End Class
