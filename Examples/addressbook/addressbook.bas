' Keeps names, telephone numbers and addresses in a keyed archive: addressbook [BOOK [COMMANDS]]
' Commands, one a line:  add NAME; PHONE; EMAIL   list   find TEXT   remove NAME   export FILE

Class Contact
  Public Dim name As String
  Public Dim phone As String = ""
  Public Dim email As String = ""
  Public Dim edits As Integer = 0

  Sub EncodeWithCoder(coder)
    PerformSelector2(coder, "encodeObject:forKey:", name, "name")
    PerformSelector2(coder, "encodeObject:forKey:", phone, "phone")
    PerformSelector2(coder, "encodeObject:forKey:", email, "email")
    PerformSelector2(coder, "encodeInteger:forKey:", edits, "edits")
  End Sub
  Sub InitWithCoder(coder)
    name = PerformSelector1(coder, "decodeObjectForKey:", "name")
    phone = PerformSelector1(coder, "decodeObjectForKey:", "phone")
    email = PerformSelector1(coder, "decodeObjectForKey:", "email")
    edits = PerformSelector1(coder, "decodeIntegerForKey:", "edits")
  End Sub
  Function Line() As String
    Return Left(name & Space(24, " "), 24) & Left(phone & Space(18, " "), 18) & email
  End Function
End Class

Class Book
  Public Dim path As String
  Public Dim contacts As NSMutableDictionary = New NSMutableDictionary

  Sub Open(location As String)
    path = location
    If NSFileManager().Exists(path) Then
      contacts = ReadKeyedArchive(path)
    End If
  End Sub
  Sub Save()
    If Not WriteKeyedArchive(contacts, path) Then
      PrintError "addressbook: cannot save " & path
    End If
  End Sub

  Sub Add(fields As NSMutableArray)
    Dim name As String = Trim(fields(0))
    If name = "" Then
      PrintError "addressbook: a name is missing"
      Return
    End If
    Dim contact As Contact = contacts(name)
    If contact = Nil Then
      contact = New Contact
    End If
    contact.name = name
    If fields.Count > 1 Then
      contact.phone = Trim(fields(1))
    End If
    If fields.Count > 2 Then
      contact.email = Trim(fields(2))
    End If
    contact.edits = contact.edits + 1
    contacts(name) = contact
    Save()
  End Sub
  Sub Remove(name As String)
    If contacts.Contains(name) Then
      contacts.Remove(name)
      Save()
    Else
      PrintError "addressbook: nobody is called " & name
    End If
  End Sub
  Function IsBefore(sorted As NSMutableArray, place As Integer, name As String) As Boolean
    If place >= sorted.Count Then
      Return False
    End If
    Return Compare(sorted(place), name, False) < 0
  End Function
  Function Names() As NSMutableArray
    Dim sorted As NSMutableArray = New NSMutableArray
    For i = 0 To contacts.Count - 1
      Dim name As String = contacts.Key(i)
      Dim place As Integer = 0
      Do While IsBefore(sorted, place, name)
        place = place + 1
      Loop
      sorted.Insert(name, place)
    Next
    Return sorted
  End Function
  Sub List(wanted As String)
    Dim names As NSMutableArray = Names()
    Dim shown As Integer = 0
    For i = 0 To names.Count - 1
      Dim line As String = contacts(names(i)).Line()
      If wanted = "" OrElse Contains(line, wanted, False) Then
        Print line
        shown = shown + 1
      End If
    Next
    Print shown & " of " & contacts.Count
  End Sub
  Sub Export(location As String)
    Dim list As NSMutableDictionary = New NSMutableDictionary
    Dim names As NSMutableArray = Names()
    For i = 0 To names.Count - 1
      Dim contact As Contact = contacts(names(i))
      Dim record As NSMutableDictionary = New NSMutableDictionary
      record("Phone") = contact.phone
      record("Email") = contact.email
      record("Edits") = contact.edits
      list(names(i)) = record
    Next
    If WriteDictionary(list, location) Then
      Print "exported " & list.Count & " to " & location
    Else
      PrintError "addressbook: cannot export to " & location
    End If
  End Sub

  Sub Obey(line As String)
    Dim words As NSMutableArray = Split(line, " ")
    Dim command As String = words(0)
    Dim rest As String = Trim(Mid(line, Len(command), -1))
    Select Case command
    Case "add"
      Add(Split(rest, ";"))
    Case "remove"
      Remove(rest)
    Case "list"
      List("")
    Case "find"
      List(rest)
    Case "export"
      Export(Location(rest))
    Case Else
      PrintError "addressbook: what is " & command & "? (add, remove, list, find, export)"
    End Select
  End Sub
End Class

Function Main(arguments As NSMutableArray) As Integer
  Dim book As Book = New Book
  Dim path As String = User.TemporaryDirectory & "addressbook-" & User.UserName & ".archive"
  Dim commands As String = EXAMPLE_FOLDER & "/commands.txt"
  If arguments.Count > 0 Then
    path = Location(arguments(0))
    commands = ""
  End If
  If arguments.Count > 1 Then
    commands = Location(arguments(1))
  End If
  Try
    book.Open(path)
  Catch failure
    PrintError "addressbook: " & path & " is no address book: " & failure.Reason
    Return 1
  End Try
  If commands = "" Then
    Dim line = ReadLine()
    Do While line <> Nil
      If Trim(line) <> "" Then
        book.Obey(Trim(line))
      End If
      line = ReadLine()
    Loop
    Return 0
  End If
  Dim lines As NSMutableArray = Split(ReadString(commands), Character(10))
  For i = 0 To lines.Count - 1
    If Trim(lines(i)) <> "" Then
      book.Obey(Trim(lines(i)))
    End If
  Next
  Return 0
End Function
