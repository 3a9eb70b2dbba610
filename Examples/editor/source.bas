' One source: its page, its file, and what the editor view asks while somebody types in it.

' Up to this length all of a source is coloured at each key, so that a string that is opened shows at once how far it goes.
Const ShortText = 200000

Class Source
  Public Dim owner
  Public Dim view As VLTextView
  Public Dim item
  Public Dim path As String = ""
  Public Dim title As String = ""
  Public Dim edited As Boolean = False
  Public Dim telling As Boolean = False
  Public Dim typed
  Public Dim place As Integer = 0
  Public Dim assistant As Assistant = New Assistant
  Public Dim settings As Settings

  Sub Build(window, language As Language, prepared As Settings)
    owner = window
    settings = prepared
    assistant.language = language
    view = New VLTextView(Me)
    view.Keywords = language.keywords
    view.Commands = language.builtins
    view.Types = language.types
    view.RichText = False
    view.AllowsUndo = True
    view.TurnOnAutoIndent()
    Dim around As NSScrollView = New NSScrollView
    around.Frame = Rect(0, 0, 600, 400)
    view.Frame = Rect(0, 0, 600, 400)
    around.HasVerticalScroller = True
    around.DocumentView = view
    view.TurnOffWrapping()
    item = New NSTabViewItem
    Property(item, "identifier", Me)
    Property(item, "view", around)
    Property(item, "initialFirstResponder", view)
    Dress()
  End Sub

  ' What the settings say of looks. The colours of the words are made for white paper, on a dark desktop too.
  Sub Dress()
    view.Font = PerformSelector1(NSFont, "userFixedPitchFontOfSize:", settings.fontSize)
    Property(view, "backgroundColor", PerformSelector0(NSColor, "whiteColor"))
    Property(view, "textColor", PerformSelector0(NSColor, "blackColor"))
    If RespondsToSelector(view, "setShowsLineNumbers:") Then PerformSelector1(view, "setShowsLineNumbers:", settings.margin)
    ShowName()
  End Sub

  Function Name() As String
    If path = "" Then Return title
    Return FileName(path)
  End Function

  ' The tab tells of changes by a mark.
  Sub ShowName()
    Dim label As String = Name()
    If edited Then label = "• " & label
    Property(item, "label", label)
    Property(item, "toolTip", path)
  End Sub

  ' Raises what the view raises when the file is none that it can show.
  Sub Load(location As String)
    telling = True
    Try
      view.Load(location)
    Catch failure
      telling = False
      Throw failure
    End Try
    telling = False
    path = location
    PerformSelector2(view, "performSyntaxHighlighting::", view, True)
    SetEdited(False)
  End Sub

  Function Save(location As String) As Boolean
    If Not view.Save(location) Then
      view.Filename = path
      Return False
    End If
    path = location
    SetEdited(False)
    Return True
  End Function

  Sub SetEdited(flag As Boolean)
    edited = flag
    ShowName()
    PerformSelector1(owner, "sourceChanged:", Me)
  End Sub

  ' Nothing was typed, and nothing would be lost.
  Function IsUntouched() As Boolean
    Return path = "" AndAlso Not edited
  End Function

  ' The text of the line of a place, up to there.
  Function LineUpTo(position As Integer) As String
    Dim text As String = view.Value
    Dim start As Integer = InStrRev(text, Character(10), position - Len(text) - 1, True) + 1
    Return Mid(text, start, position - start)
  End Function

  ' From 1 on. The view counts the empty line behind the last line end to the line before it.
  Function LineNumber() As Integer
    Dim position As Integer = view.Position
    If position > 0 AndAlso position = Property(view, "textStorage.length") AndAlso LineUpTo(position) = "" Then Return view.Line + 1
    Return Max(1, view.Line)
  End Function

  ' From 1 on.
  Function Column() As Integer
    Return Len(LineUpTo(view.Position)) + 1
  End Function

  ' While the editor formats, what it changes was not typed.
  Function ShouldChange(view, range As Range, text) As Boolean Alias "textView:shouldChangeTextInRange:replacementString:"
    If telling Then Return True
    typed = text
    place = range.Location
    Return True
  End Function

  Sub TextDidChange(notification)
    If telling Then Return
    If Not edited Then SetEdited(True)
    Dim what = typed
    typed = Nil
    If what <> Nil Then
      If Len(what) = 1 Then TellOf(what)
    End If
    Colour()
  End Sub

  ' The view learns of a key that it has something to do for: a line that ended, or a list that has something in it.
  Sub TellOf(what As String)
    If what = Character(10) Then
      If settings.formats Then Tell(what)
    ElseIf what = "." OrElse what = "(" Then
      If settings.completes AndAlso KnowsWhatFollows(what) Then
        Tell(what)
      Else
        CloseCompletion()
      End If
    ElseIf what = " " Then
      If settings.completes AndAlso AsksForType() Then TellOfType()
    Else
      Tell(what)
    End If
  End Sub

  Sub Tell(what As String)
    Dim change As NSMutableArray = New NSMutableArray
    change.Append(place)
    change.Append(what)
    telling = True
    PerformSelector1(view, "_ShouldChangeText:", change)
    telling = False
  End Sub

  Function AsksForType() As Boolean
    Dim part As String = LineUpTo(place)
    Return EndsWith(part, " as", False) AndAlso GoesOnAsCode(part)
  End Function

  ' The source's own classes are types as well. A list that was asked for before and never shown does not stand in the way.
  Sub TellOfType()
    ReadSource()
    Dim types As NSMutableArray = New NSMutableArray
    assistant.AppendAll(types, assistant.language.types)
    assistant.AppendClasses(types)
    view.Types = types
    Tell(" ")
    If Property(view, "completionTimer") = Nil Then PerformSelector0(view, "startCompletionTimer")
  End Sub

  Sub ReadSource()
    assistant.source.Read(view.Value)
  End Sub

  ' Whether a list behind the key would have something in it. In strings and comments nothing is offered.
  Function KnowsWhatFollows(what As String) As Boolean
    If Not GoesOnAsCode(LineUpTo(place)) Then Return False
    ReadSource()
    PerformSelector2(view, "getCompletion::", place, view.Value)
    Dim expression As String = Property(view, "sCompletion")
    If what = "(" Then Return assistant.Signature(expression, LineNumber()) <> ""
    Return assistant.Choices(expression, LineNumber()).Count > 0
  End Function

  ' A list of names that is open has nothing to offer behind a name that nobody knows.
  Sub CloseCompletion()
    Dim open As NSArray = Property(view, "runningCompletions")
    If open.Count = 0 OrElse myFloatingKeyWindow = Nil Then Return
    If Not Property(open(open.Count - 1), "bClass") Then Return
    Dim list As NSTableView = Property(myFloatingKeyWindow, "contentView.documentView")
    PerformSelector1(Property(list, "dataSource"), "cancelOperation:", view)
  End Sub

  ' What the view asks when it opens a list.
  Function Completion(view, expression As String) As NSMutableArray Alias "__TextView_GetCompletion::"
    ReadSource()
    Return assistant.Choices(expression, LineNumber())
  End Function

  Function ArgumentHelp(view, expression As String) As String Alias "__TextView_GetCompletion2::"
    ReadSource()
    Return assistant.Signature(expression, LineNumber())
  End Function

  Sub Colour()
    If Property(view, "textStorage.length") < ShortText Then
      PerformSelector2(view, "performSyntaxHighlighting::", view, True)
    Else
      view.PerformSyntaxHighlighting()
    End If
  End Sub

  Sub TextViewDidChangeSelection(notification)
    PerformSelector1(owner, "sourceMoved:", Me)
  End Sub
End Class
