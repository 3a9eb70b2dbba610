Sub Greet
  Print "Hello"
End Sub
