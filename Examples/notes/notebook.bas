' Notes, and the file that keeps them: a property list, written as a whole or not at all.

Class Note
  Public Dim text As String = ""
  Public Dim title As String = ""
  Public Dim changed As Double = 0.0

  ' Takes a text; its first line that says something is the title.
  Sub Write(value As String)
    text = value
    title = "New Note"
    Dim lines As NSMutableArray = Split(value, Character(10))
    For i = 0 To lines.Count - 1
      Dim line As String = Trim(lines(i))
      If line <> "" Then
        title = line
        Exit For
      End If
    Next
  End Sub

  ' The note was changed just now. Moments are counted as dates count them: in seconds.
  Sub Touch()
    changed = Property(PerformSelector0(NSDate, "date"), "timeIntervalSinceReferenceDate")
  End Sub

  Function Date()
    Return PerformSelector1(NSDate, "dateWithTimeIntervalSinceReferenceDate:", changed)
  End Function

  ' What the table shows of that moment.
  Function DateText() As String
    Return Date().DescriptionWithCalendarFormat("%Y-%m-%d %H:%M", Nil, Nil)
  End Function

  Function Matches(find As String) As Boolean
    Return find = "" OrElse Contains(text, find, False)
  End Function

  Function Record() As NSMutableDictionary
    Dim kept As NSMutableDictionary = New NSMutableDictionary
    kept("text") = text
    kept("changed") = Date()
    Return kept
  End Function
End Class

Class Notebook
  Public Dim path As String = ""
  Public Dim notes As NSMutableArray = New NSMutableArray
  Public Dim edited As Boolean = False

  ' What the window is called.
  Function Name() As String
    If path = "" Then Return "Untitled"
    Return FileName(path)
  End Function

  Function Add() As Note
    Dim note As Note = New Note
    note.Write("")
    note.Touch()
    notes.Append(note)
    edited = True
    Return note
  End Function

  Sub Change(note As Note, text As String)
    note.Write(text)
    note.Touch()
    edited = True
  End Sub

  Sub Remove(note As Note)
    notes.RemoveObject(note)
    edited = True
  End Sub

  ' Takes the notes of a file. Raises a failure for what is no file of notes, and takes nothing then.
  Sub Read(from As String)
    Dim records As NSArray = ReadDictionary(from)("notes")
    If records = Nil Then Exception("NotesFailure", "There are no notes in it.")
    Dim found As NSMutableArray = New NSMutableArray
    For i = 0 To records.Count - 1
      Dim record As NSDictionary = records(i)
      Dim note As Note = New Note
      note.Write(CString(record("text")))
      note.changed = CDouble(Property(record("changed"), "timeIntervalSinceReferenceDate"))
      found.Append(note)
    Next
    notes = found
    path = from
    edited = False
  End Sub

  ' Writes the notes; what was in the file before is lost only when all of them are in it.
  Function Save(destination As String) As Boolean
    Dim records As NSMutableArray = New NSMutableArray
    For i = 0 To notes.Count - 1
      records.Append(notes(i).Record())
    Next
    Dim content As NSMutableDictionary = New NSMutableDictionary
    content("notes") = records
    If Not WriteDictionary(content, destination) Then Return False
    path = destination
    edited = False
    Return True
  End Function

  ' The notes in which a text occurs, in an order: by "title" or by "changed".
  Function Matching(find As String, key As String, ascending As Boolean) As NSMutableArray
    Dim sorted As NSMutableArray = New NSMutableArray
    For i = 0 To notes.Count - 1
      If notes(i).Matches(find) Then sorted.Insert(notes(i), Place(notes(i), sorted, key, ascending))
    Next
    Return sorted
  End Function

  ' Where a note goes among others that are in that order: behind those that are its equals.
  Function Place(note As Note, sorted As NSMutableArray, key As String, ascending As Boolean) As Integer
    Dim low As Integer = 0
    Dim high As Integer = sorted.Count
    Do While low < high
      Dim middle As Integer = (low + high) \ 2
      Dim order As Integer = Order(note, sorted(middle), key)
      If Not ascending Then order = -order
      If order < 0 Then
        high = middle
      Else
        low = middle + 1
      End If
    Loop
    Return low
  End Function

  Function Order(first As Note, second As Note, key As String) As Integer
    If key = "title" Then Return Compare(first.title, second.title, False)
    If first.changed < second.changed Then Return -1
    If first.changed > second.changed Then Return 1
    Return 0
  End Function
End Class
