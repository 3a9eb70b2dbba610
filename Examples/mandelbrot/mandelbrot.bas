' The Mandelbrot set as a text picture: mandelbrot [WIDTH [HEIGHT [ITERATIONS]]]

Function StepsToEscape(x As Double, y As Double, limit As Integer) As Integer
  Dim a As Double = 0.0
  Dim b As Double = 0.0
  Dim n As Integer = 0
  Do While a * a + b * b <= 4.0 AndAlso n < limit
    Dim t As Double = a * a - b * b + x
    b = 2.0 * a * b + y
    a = t
    n = n + 1
  Loop
  Return n
End Function

Function Row(y As Double, width As Integer, limit As Integer) As String
  Dim shades As String = ".,:;-=+*%@"
  Dim text As String = ""
  For column = 0 To width - 1
    Dim x As Double = -2.2 + 3.2 * (column + 0.5) / width
    Dim steps As Integer = StepsToEscape(x, y, limit)
    If steps = limit Then
      text = text & " "
    Else
      text = text & At(shades, steps Mod Len(shades))
    End If
  Next
  Return text
End Function

Function Argument(arguments As NSMutableArray, index As Integer, usual As Integer) As Integer
  If index >= arguments.Count Then
    Return usual
  End If
  Return CInteger(arguments(index))
End Function

Function Main(arguments As NSMutableArray) As Integer
  Dim width As Integer = Argument(arguments, 0, 72)
  Dim height As Integer = Argument(arguments, 1, 28)
  Dim limit As Integer = Argument(arguments, 2, 200)
  If width < 1 OrElse height < 1 OrElse limit < 1 Then
    PrintError "mandelbrot: WIDTH, HEIGHT and ITERATIONS are numbers from 1 on"
    Return 2
  End If
  For line = 0 To height - 1
    Print Row(-1.2 + 2.4 * (line + 0.5) / height, width, limit)
  Next
  Return 0
End Function
