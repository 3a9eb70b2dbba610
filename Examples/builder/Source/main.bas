' The first of two sources.
Sub Main
  Call Greet
  Print "built from two sources"
End Sub
