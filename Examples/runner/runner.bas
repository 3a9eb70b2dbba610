' Runs a command and shows what it writes, each piece with the seconds since the start: runner COMMAND [ARGUMENT...]
' The first Ctrl-C reaches the command, as it would from a shell; the second one ends it.

Class Runner
  Public Dim task As VLTask

  Sub Show(kind As String, text As String)
    Dim stamp As String = Right("       " & FormatDecimal(Seconds(), False, 3), 8)
    Dim lines As NSMutableArray = Split(text, Character(10))
    For i = 0 To lines.Count - 1
      If i < lines.Count - 1 OrElse Len(lines(i)) > 0 Then
        Print stamp & " " & kind & " " & lines(i)
      End If
    Next
  End Sub

  Sub Job_Stdout(piece As NSData)
    Show("out", CString(piece))
  End Sub

  Sub Job_Stderr(piece As NSData)
    Show("err", CString(piece))
  End Sub

  Sub JobStopped
    Show("end", "status " & task.ExitStatus)
  End Sub

  Function IsDone As Boolean
    Return task.taskDidTerminate AndAlso task.stdoutEmpty AndAlso task.stderrEmpty
  End Function

  Function Run(arguments As NSMutableArray) As Integer
    task = New VLTask(Me, "job")
    task.Path = "/usr/bin/env"
    task.Arguments = arguments
    task.mytask.launch
    Show("run", Join(arguments, " "))
    Dim asked As Integer = 0
    Do While Not IsDone()
      DoRunLoop(0.02)
      If Interrupts() > asked Then
        asked = Interrupts()
        If asked = 1 Then
          Show("int", "once more ends it")
        Else
          Show("int", "ending it")
          task.Stop
        End If
      End If
    Loop
    Return task.ExitStatus
  End Function
End Class

Function Main(arguments As NSMutableArray) As Integer
  If arguments.Count = 0 Then
    PrintError "usage: runner COMMAND [ARGUMENT...]"
    Return 2
  End If
  CountInterrupts
  Seconds()
  Dim runner As Runner = New Runner
  Dim status As Integer = runner.Run(arguments)
  runner.task = Nil
  Return status
End Function
