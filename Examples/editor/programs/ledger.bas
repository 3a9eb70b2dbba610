' A household ledger by double entry: ledger [FILE [COMMANDS]]
'
' The file is plain text. A transaction begins with its date and what it was for; the lines below it, which begin with
' blanks, say what it did to which account. One amount may be left out: it balances the others.
'
'   2024-03-01 Rent for March
'     expenses:rent          780.00
'     assets:bank
'
' Commands, one a line: balance, register, months, budget, check, add, account, rename, undo, save, help and quit.
' Amounts are kept in cents, so that nothing is lost by rounding.

Const DefaultFile = "household.ledger"
Const BackupEnding = ".old"
Const NameWidth = 34
Const AmountWidth = 14
Const NoteWidth = 28
Const BarWidth = 32
Const DaysOfWeek = 7
Const FirstYear = 1900
Const LastYear = 2199

' The whole ledger.
Dim transactions As NSMutableArray
Dim accounts As NSMutableDictionary
Dim budgets As NSMutableDictionary
Dim problems As NSMutableArray
Dim history As NSMutableArray
Dim ledgerPath As String
Dim isChanged As Boolean
Dim isFinished As Boolean

' ---------------------------------------------------------------------------------------------------------------------
' Text
' ---------------------------------------------------------------------------------------------------------------------

' A text cut or filled with blanks to a width.
Function PadRight(text As String, width As Integer) As String
  If Len(text) > width Then
    Return Left(text, width - 1) & "…"
  End If
  Return text & Space(width - Len(text), " ")
End Function

' The same, but at the right of its column.
Function PadLeft(text As String, width As Integer) As String
  If Len(text) >= width Then
    Return text
  End If
  Return Space(width - Len(text), " ") & text
End Function

Function Quoted(text As String) As String
  Return Character(34) & text & Character(34)
End Function

Function IsBlank(text As String) As Boolean
  Return Len(Trim(text)) = 0
End Function

Function IsIndented(text As String) As Boolean
  If Len(text) = 0 Then
    Return False
  End If
  Dim first As String = At(text, 0)
  Return first = " " Or first = Character(9)
End Function

Function IsDigit(letter As String) As Boolean
  Return Contains("0123456789", letter)
End Function

Function IsNumber(text As String) As Boolean
  If Len(text) = 0 Then
    Return False
  End If
  For i = 0 To Len(text) - 1
    If Not IsDigit(At(text, i)) Then
      Return False
    End If
  Next i
  Return True
End Function

' The words of a text; several blanks count as one.
Function WordsOf(text As String) As NSMutableArray
  Dim pieces As NSMutableArray = Split(Replace(text, Character(9), " ", True), " ")
  Dim words As NSMutableArray = New NSMutableArray
  For i = 0 To pieces.Count - 1
    If Len(pieces(i)) > 0 Then
      words.Append(pieces(i))
    End If
  Next i
  Return words
End Function

' The words from one on as a text again.
Function RestOf(words As NSMutableArray, first As Integer) As String
  Dim rest As String = ""
  For i = first To words.Count - 1
    If Len(rest) > 0 Then
      rest = rest & " "
    End If
    rest = rest & words(i)
  Next i
  Return rest
End Function

' A rule under a heading.
Function Rule(width As Integer) As String
  Return Space(width, "-")
End Function

Sub PrintHeading(title As String)
  Print ""
  Print title
  Print Rule(Len(title))
End Sub

' ---------------------------------------------------------------------------------------------------------------------
' Amounts
' ---------------------------------------------------------------------------------------------------------------------

' The whole part of an amount with a comma before every three digits.
Function Grouped(digits As String) As String
  Dim result As String = ""
  Dim remaining As Integer = Len(digits)
  Do While remaining > 3
    result = "," & Mid(digits, remaining - 3, 3) & result
    remaining = remaining - 3
  Loop ' what remains comes before the first comma
  Return Left(digits, remaining) & result
End Function

' Cents as people write them: 1,234.50
Function AmountText(cents As Integer) As String
  Dim sign As String = ""
  Dim rest As Integer = cents
  If rest < 0 Then
    sign = "-"
    rest = 0 - rest
  End If
  Dim whole As Integer = rest \ 100
  Dim part As Integer = rest - whole * 100
  Dim text As String = CString(part)
  If part < 10 Then
    text = "0" & text
  End If
  Return sign & Grouped(CString(whole)) & "." & text
End Function

' Nil when the text is no amount.
Function AmountOf(text As String) As Object
  Dim plain As String = Replace(Trim(text), ",", "", True)
  Dim isNegative As Boolean = False
  If StartsWith(plain, "-", True) Then
    isNegative = True
    plain = Mid(plain, 1, Len(plain) - 1)
  Else If StartsWith(plain, "+", True) Then
    plain = Mid(plain, 1, Len(plain) - 1)
  End If
  Dim parts As NSMutableArray = Split(plain, ".")
  If parts.Count > 2 Or Not IsNumber(parts(0)) Then
    Return Nil
  End If
  Dim cents As Integer = CInteger(parts(0)) * 100
  If parts.Count = 2 Then
    Dim fraction As String = parts(1)
    If Len(fraction) > 2 Or Not IsNumber(fraction) Then
      Return Nil
    End If
    If Len(fraction) = 1 Then
      fraction = fraction & "0"
    End If
    cents = cents + CInteger(fraction)
  End If
  If isNegative Then
    Return 0 - cents
  End If
  Return cents
End Function

' A bar as long as an amount is great beside the greatest one.
Function BarFor(cents As Integer, greatest As Integer) As String
  If greatest <= 0 Or cents <= 0 Then
    Return ""
  End If
  Return Space(Max(1, BarWidth * cents \ greatest), "█")
End Function

' ---------------------------------------------------------------------------------------------------------------------
' Dates
' ---------------------------------------------------------------------------------------------------------------------

Function IsLeapYear(year As Integer) As Boolean
  If year - (year \ 400) * 400 = 0 Then
    Return True
  End If
  If year - (year \ 100) * 100 = 0 Then
    Return False
  End If
  Return year - (year \ 4) * 4 = 0
End Function

Function DaysInMonth(year As Integer, month As Integer) As Integer
  Select Case month
    Case 4, 6, 9, 11
      Return 30
    Case 2
      If IsLeapYear(year) Then
        Return 29
      End If
      Return 28
    Case Else
      Return 31
  End Select
End Function

' A date is written as 2024-03-01; anything else is no date.
Function IsDate(text As String) As Boolean
  Dim parts As NSMutableArray = Split(text, "-")
  If parts.Count <> 3 Then
    Return False
  End If
  If Len(parts(0)) <> 4 Or Len(parts(1)) <> 2 Or Len(parts(2)) <> 2 Then
    Return False
  End If
  For i = 0 To 2
    If Not IsNumber(parts(i)) Then
      Return False
    End If
  Next i
  Dim year As Integer = CInteger(parts(0))
  Dim month As Integer = CInteger(parts(1))
  Dim day As Integer = CInteger(parts(2))
  If year < FirstYear Or year > LastYear Then
    Return False
  End If
  If month < 1 Or month > 12 Then
    Return False
  End If
  Return day >= 1 And day <= DaysInMonth(year, month)
End Function

Function MonthOf(day As String) As String
  Return Left(day, 7)
End Function

Function MonthName(month As String) As String
  Dim names As NSMutableArray = Split("January,February,March,April,May,June,July,August,September,October,November,December", ",")
  Dim number As Integer = CInteger(Right(month, 2))
  Return names(number - 1) & " " & Left(month, 4)
End Function

' The number of a day, counted from the first of the first year.
Function DayNumber(day As String) As Integer
  Dim parts As NSMutableArray = Split(day, "-")
  Dim year As Integer = CInteger(parts(0))
  Dim number As Integer = CInteger(parts(2)) - 1
  For y = FirstYear To year - 1
    number = number + 365
    If IsLeapYear(y) Then
      number = number + 1
    End If
  Next y
  For m = 1 To CInteger(parts(1)) - 1
    number = number + DaysInMonth(year, m)
  Next m
  Return number
End Function

Function DayOfWeek(day As String) As String
  Dim names As NSMutableArray = Split("Mon,Tue,Wed,Thu,Fri,Sat,Sun", ",")
  Dim number As Integer = DayNumber(day)
  Return names(number - (number \ DaysOfWeek) * DaysOfWeek)
End Function

' The month after one, both as 2024-03.
Function NextMonth(month As String) As String
  Dim year As Integer = CInteger(Left(month, 4))
  Dim number As Integer = CInteger(Right(month, 2)) + 1
  If number > 12 Then
    number = 1
    year = year + 1
  End If
  Dim text As String = CString(number)
  If number < 10 Then
    text = "0" & text
  End If
  Return CString(year) & "-" & text
End Function

' ---------------------------------------------------------------------------------------------------------------------
' Transactions and their postings
' ---------------------------------------------------------------------------------------------------------------------

Function NewTransaction(day As String, note As String, line As Integer) As NSMutableDictionary
  Dim transaction As NSMutableDictionary = New NSMutableDictionary
  transaction("day") = day
  transaction("note") = note
  transaction("line") = line
  transaction("comment") = ""
  transaction("postings") = New NSMutableArray
  Return transaction
End Function

' An amount of Nil is worked out when the transaction is complete.
Function NewPosting(account As String, cents As Object) As NSMutableDictionary
  Dim posting As NSMutableDictionary = New NSMutableDictionary
  posting("account") = account
  If cents = Nil Then
    posting("open") = True
    posting("cents") = 0
  Else ' the amount was written down
    posting("open") = False
    posting("cents") = cents
  End If
  Return posting
End Function

Function SumOf(transaction As NSMutableDictionary) As Integer
  Dim postings As NSMutableArray = transaction("postings")
  Dim sum As Integer = 0
  For i = 0 To postings.Count - 1
    sum = sum + postings(i)("cents")
  Next i
  Return sum
End Function

' What a transaction does to one account and those below it.
Function EffectOn(transaction As NSMutableDictionary, account As String) As Integer
  Dim postings As NSMutableArray = transaction("postings")
  Dim sum As Integer = 0
  For i = 0 To postings.Count - 1
    If IsBelow(postings(i)("account"), account) Then
      sum = sum + postings(i)("cents")
    End If
  Next i
  Return sum
End Function

' Gives the posting without an amount what is missing; says what is wrong, or nothing.
Function CompleteTransaction(transaction As NSMutableDictionary) As String
  Dim postings As NSMutableArray = transaction("postings")
  Dim openPosting As NSMutableDictionary = Nil
  Dim openCount As Integer = 0
  For i = 0 To postings.Count - 1
    If postings(i)("open") Then
      openPosting = postings(i)
      openCount = openCount + 1
    End If
  Next i
  If postings.Count < 2 Then
    Return "a transaction needs two accounts"
  End If
  If openCount > 1 Then
    Return "only one amount may be left out"
  End If
  Dim sum As Integer = SumOf(transaction)
  If openCount = 1 Then
    openPosting("cents") = 0 - sum
    Return ""
  End If
  If sum <> 0 Then
    Return "the amounts differ by " & AmountText(sum)
  End If
  Return ""
End Function

' Puts a transaction behind all that are not later.
Sub InsertTransaction(transaction As NSMutableDictionary)
  Dim place As Integer = transactions.Count
  Do While place > 0
    If Compare(transactions(place - 1)("day"), transaction("day"), True) <= 0 Then
      Exit Do
    End If
    place = place - 1
  Loop ' the place is found
  transactions.Insert(transaction, place)
  RememberAccounts(transaction)
End Sub

Sub RememberAccounts(transaction As NSMutableDictionary)
  Dim postings As NSMutableArray = transaction("postings")
  For i = 0 To postings.Count - 1
    RememberAccount(postings(i)("account"))
  Next i
End Sub

' An account stands for those above it too: expenses:rent is one of the expenses.
Sub RememberAccount(name As String)
  Dim parts As NSMutableArray = Split(name, ":")
  Dim path As String = ""
  For i = 0 To parts.Count - 1
    If i > 0 Then
      path = path & ":"
    End If
    path = path & parts(i)
    If Not accounts.Contains(path) Then
      accounts(path) = i
    End If
  Next i
End Sub

Function IsBelow(name As String, account As String) As Boolean
  If Len(account) = 0 Or name = account Then
    Return True
  End If
  Return StartsWith(name, account & ":", True)
End Function

' The names of all accounts in their order.
Function SortedAccounts() As NSMutableArray
  Dim sorted As NSMutableArray = New NSMutableArray
  Dim names As NSMutableArray = accounts.Keys
  For i = 0 To names.Count - 1
    Dim place As Integer = sorted.Count
    Do While place > 0
      If Compare(sorted(place - 1), names(i), True) <= 0 Then
        Exit Do
      End If
      place = place - 1
    Loop ' the place is found
    sorted.Insert(names(i), place)
  Next i
  Return sorted
End Function

' The one account whose name ends with a text, or the text itself when there is none or more than one.
Function FullAccountName(text As String) As String
  If accounts.Contains(text) Then
    Return text
  End If
  Dim names As NSMutableArray = accounts.Keys
  Dim found As String = ""
  Dim foundCount As Integer = 0
  For i = 0 To names.Count - 1
    If EndsWith(names(i), ":" & text, False) Then
      found = names(i)
      foundCount = foundCount + 1
    End If
  Next i
  If foundCount = 1 Then
    Return found
  End If
  Return text
End Function

' What is in an account after the last transaction of a day; an empty day stands for all.
Function BalanceOf(account As String, day As String) As Integer
  Dim sum As Integer = 0
  For i = 0 To transactions.Count - 1
    If Len(day) > 0 Then
      If Compare(transactions(i)("day"), day, True) > 0 Then
        Exit For
      End If
    End If
    sum = sum + EffectOn(transactions(i), account)
  Next i
  Return sum
End Function

' What went into an account within a month.
Function MonthTotal(account As String, month As String) As Integer
  Dim sum As Integer = 0
  For i = 0 To transactions.Count - 1
    If MonthOf(transactions(i)("day")) = month Then
      sum = sum + EffectOn(transactions(i), account)
    End If
  Next i
  Return sum
End Function

' ---------------------------------------------------------------------------------------------------------------------
' Reading
' ---------------------------------------------------------------------------------------------------------------------

Sub AddProblem(line As Integer, what As String)
  problems.Append("line " & line & ": " & what)
End Sub

' The text of a line up to its remark, which begins with a semicolon.
Function WithoutRemark(line As String) As String
  Dim place As Integer = InStr(line, ";", 0, True)
  If place < 0 Then
    Return line
  End If
  Return Left(line, place)
End Function

Function RemarkOf(line As String) As String
  Dim place As Integer = InStr(line, ";", 0, True)
  If place < 0 Then
    Return ""
  End If
  Return Trim(Mid(line, place + 1, Len(line) - place - 1))
End Function

' The first line of a transaction; Nil when it has no date.
Function ParseHeader(line As String, number As Integer) As NSMutableDictionary
  Dim words As NSMutableArray = WordsOf(WithoutRemark(line))
  If words.Count = 0 Then
    Return Nil
  End If
  If Not IsDate(words(0)) Then
    AddProblem(number, Quoted(words(0)) & " is no date")
    Return Nil
  End If
  Dim transaction As NSMutableDictionary = NewTransaction(words(0), RestOf(words, 1), number)
  transaction("comment") = RemarkOf(line)
  Return transaction
End Function

' A line below it: an account and perhaps an amount.
Function ParsePosting(line As String, number As Integer) As NSMutableDictionary
  Dim words As NSMutableArray = WordsOf(WithoutRemark(line))
  If words.Count = 0 Then
    Return Nil
  End If
  Dim account As String = words(0)
  If StartsWith(account, ":", True) Or EndsWith(account, ":", True) Then
    AddProblem(number, Quoted(account) & " is no account")
    Return Nil
  End If
  If words.Count = 1 Then
    Return NewPosting(account, Nil)
  End If
  If words.Count > 2 Then
    AddProblem(number, "there is something behind the amount: " & RestOf(words, 2))
    Return Nil
  End If
  Dim cents As Object = AmountOf(words(1))
  If cents = Nil Then
    AddProblem(number, Quoted(words(1)) & " is no amount")
    Return Nil
  End If
  Return NewPosting(account, cents)
End Function

' A line "budget ACCOUNT AMOUNT": what may be spent in a month.
Sub ParseBudget(line As String, number As Integer)
  Dim words As NSMutableArray = WordsOf(WithoutRemark(line))
  If words.Count <> 3 Then
    AddProblem(number, "a budget has an account and an amount")
    Return
  End If
  Dim cents As Object = AmountOf(words(2))
  If cents = Nil Then
    AddProblem(number, Quoted(words(2)) & " is no amount")
    Return
  End If
  budgets(words(1)) = cents
  RememberAccount(words(1))
End Sub

Sub FinishTransaction(transaction As NSMutableDictionary)
  If transaction = Nil Then
    Return
  End If
  Dim problem As String = CompleteTransaction(transaction)
  If Len(problem) > 0 Then
    AddProblem(transaction("line"), problem)
    Return
  End If
  InsertTransaction(transaction)
End Sub

' Reads a whole ledger. What cannot be read is remembered as a problem and left out.
Sub ParseLedger(text As String)
  Dim lines As NSMutableArray = Split(Replace(text, Character(13), "", True), Character(10))
  Dim transaction As NSMutableDictionary = Nil
  For i = 0 To lines.Count - 1
    Dim line As String = lines(i)
    If IsBlank(line) Or StartsWith(line, ";", True) Then
      FinishTransaction(transaction)
      transaction = Nil
    Else If StartsWith(line, "budget ", False) Then
      FinishTransaction(transaction)
      transaction = Nil
      ParseBudget(line, i + 1)
    Else If IsIndented(line) Then
      If transaction = Nil Then
        AddProblem(i + 1, "a posting without a transaction")
      Else ' it belongs to the transaction above
        Dim posting As NSMutableDictionary = ParsePosting(line, i + 1)
        If posting <> Nil Then
          transaction("postings").Append(posting)
        End If
      End If
    Else ' a new transaction
      FinishTransaction(transaction)
      transaction = ParseHeader(line, i + 1)
    End If
  Next i
  FinishTransaction(transaction)
End Sub

Sub ClearLedger()
  transactions = New NSMutableArray
  accounts = New NSMutableDictionary
  budgets = New NSMutableDictionary
  problems = New NSMutableArray
  isChanged = False
End Sub

Sub OpenLedger(path As String)
  ledgerPath = path
  ClearLedger()
  history = New NSMutableArray
  Dim files As NSFileManager = New NSFileManager
  If Not files.ExistsFile(path) Then
    Print path & " does not exist yet; it is written by the command save."
    Return
  End If
  ParseLedger(ReadString(Location(path)))
  Print path & ": " & transactions.Count & " transactions, " & accounts.Count & " accounts."
  PrintProblems()
End Sub

Sub PrintProblems()
  For i = 0 To problems.Count - 1
    PrintError ledgerPath & ", " & problems(i)
  Next i
End Sub

' ---------------------------------------------------------------------------------------------------------------------
' Writing
' ---------------------------------------------------------------------------------------------------------------------

Function TextOfPosting(posting As NSMutableDictionary) As String
  Dim text As String = "  " & PadRight(posting("account"), NameWidth)
  Return text & PadLeft(AmountText(posting("cents")), AmountWidth)
End Function

Function TextOfTransaction(transaction As NSMutableDictionary) As String
  Dim text As String = transaction("day") & " " & transaction("note")
  If Len(transaction("comment")) > 0 Then
    text = text & " ; " & transaction("comment")
  End If
  text = text & Character(10)
  Dim postings As NSMutableArray = transaction("postings")
  For i = 0 To postings.Count - 1
    text = text & TextOfPosting(postings(i)) & Character(10)
  Next i
  Return text
End Function

Function TextOfBudgets() As String
  Dim names As NSMutableArray = SortedAccounts()
  Dim text As String = ""
  For i = 0 To names.Count - 1
    If budgets.Contains(names(i)) Then
      text = text & "budget " & names(i) & " " & AmountText(budgets(names(i))) & Character(10)
    End If
  Next i
  If Len(text) > 0 Then
    text = text & Character(10)
  End If
  Return text
End Function

Function TextOfLedger() As String
  Dim text As String = TextOfBudgets()
  For i = 0 To transactions.Count - 1
    If i > 0 Then
      text = text & Character(10)
    End If
    text = text & TextOfTransaction(transactions(i))
  Next i
  Return text
End Function

' Keeps the file as it was beside the new one.
Function SaveLedger() As Boolean
  Dim files As NSFileManager = New NSFileManager
  If problems.Count > 0 Then
    PrintError "Lines with problems would be lost; mend them first."
    Return False
  End If
  If files.ExistsFile(ledgerPath) Then
    Dim backup As String = ledgerPath & BackupEnding
    If files.ExistsFile(backup) Then
      files.Delete(backup)
    End If
    files.Copy(ledgerPath, backup)
  End If
  If Not WriteString(TextOfLedger(), Location(ledgerPath)) Then
    PrintError "cannot write " & ledgerPath
    Return False
  End If
  isChanged = False
  Return True
End Function

' ---------------------------------------------------------------------------------------------------------------------
' Undo
' ---------------------------------------------------------------------------------------------------------------------

' Before each change the whole ledger is remembered as its text.
Sub RememberState(what As String)
  Dim state As NSMutableDictionary = New NSMutableDictionary
  state("what") = what
  state("text") = TextOfLedger()
  history.Append(state)
  isChanged = True
End Sub

Sub UndoLast()
  If history.Count = 0 Then
    Print "There is nothing to undo."
    Return
  End If
  Dim state As NSMutableDictionary = history(history.Count - 1)
  history.Remove(history.Count - 1)
  Dim before As NSMutableArray = problems
  ClearLedger()
  ParseLedger(state("text"))
  problems = before
  isChanged = history.Count > 0
  Print "Undone: " & state("what")
End Sub

' ---------------------------------------------------------------------------------------------------------------------
' Reports
' ---------------------------------------------------------------------------------------------------------------------

' Every account with what is in it, those below another one indented.
Sub ReportBalances(filter As String, day As String)
  Dim title As String = "Balances"
  If Len(day) > 0 Then
    title = title & " on " & DayOfWeek(day) & " " & day
  End If
  PrintHeading(title)
  Dim names As NSMutableArray = SortedAccounts()
  Dim total As Integer = 0
  For i = 0 To names.Count - 1
    If Len(filter) = 0 Or Contains(names(i), filter) Then
      Dim depth As Integer = accounts(names(i))
      Dim cents As Integer = BalanceOf(names(i), day)
      Dim parts As NSMutableArray = Split(names(i), ":")
      Dim label As String = Space(2 * depth, " ") & parts(parts.Count - 1)
      Print PadRight(label, NameWidth) & PadLeft(AmountText(cents), AmountWidth)
      If depth = 0 Then
        total = total + cents
      End If
    End If
  Next i
  Print Rule(NameWidth + AmountWidth)
  Print PadRight("", NameWidth) & PadLeft(AmountText(total), AmountWidth)
End Sub

' Each transaction that touches an account, with what is in the account then.
Sub ReportRegister(account As String, fromDay As String, toDay As String)
  PrintHeading("Register of " & account)
  Dim balance As Integer = 0
  Dim shown As Integer = 0
  For i = 0 To transactions.Count - 1
    Dim transaction As NSMutableDictionary = transactions(i)
    Dim effect As Integer = EffectOn(transaction, account)
    balance = balance + effect
    If effect <> 0 And IsWithin(transaction("day"), fromDay, toDay) Then
      Dim line As String = transaction("day") & " " & DayOfWeek(transaction("day")) & "  "
      line = line & PadRight(transaction("note"), NoteWidth)
      line = line & PadLeft(AmountText(effect), AmountWidth) & PadLeft(AmountText(balance), AmountWidth)
      Print line
      shown = shown + 1
    End If
  Next i
  If shown = 0 Then
    Print "(nothing)"
  End If
End Sub

' An empty day has no end on its side.
Function IsWithin(day As String, fromDay As String, toDay As String) As Boolean
  If Len(fromDay) > 0 Then
    If Compare(day, fromDay, True) < 0 Then
      Return False
    End If
  End If
  If Len(toDay) > 0 Then
    If Compare(day, toDay, True) > 0 Then
      Return False
    End If
  End If
  Return True
End Function

' All months from the first transaction to the last.
Function AllMonths() As NSMutableArray
  Dim months As NSMutableArray = New NSMutableArray
  If transactions.Count = 0 Then
    Return months
  End If
  Dim month As String = MonthOf(transactions(0)("day"))
  Dim last As String = MonthOf(transactions(transactions.Count - 1)("day"))
  Do While Compare(month, last, True) <= 0
    months.Append(month)
    month = NextMonth(month)
  Loop ' every month is there
  Return months
End Function

' What went into an account month by month, with bars.
Sub ReportMonths(account As String)
  PrintHeading(account & " by month")
  Dim months As NSMutableArray = AllMonths()
  Dim totals As NSMutableArray = New NSMutableArray
  Dim greatest As Integer = 0
  Dim sum As Integer = 0
  For i = 0 To months.Count - 1
    Dim total As Integer = MonthTotal(account, months(i))
    totals.Append(total)
    sum = sum + total
    greatest = Max(greatest, total)
  Next i
  For i = 0 To months.Count - 1
    Dim line As String = PadRight(MonthName(months(i)), 16)
    line = line & PadLeft(AmountText(totals(i)), AmountWidth) & "  "
    Print line & BarFor(totals(i), greatest)
  Next i
  If months.Count > 0 Then
    Print PadRight("on average", 16) & PadLeft(AmountText(sum \ months.Count), AmountWidth)
  End If
End Sub

' What is left of each budget of a month.
Sub ReportBudget(month As String)
  PrintHeading("Budget of " & MonthName(month))
  Dim names As NSMutableArray = SortedAccounts()
  Dim shown As Integer = 0
  For i = 0 To names.Count - 1
    If budgets.Contains(names(i)) Then
      Dim allowed As Integer = budgets(names(i))
      Dim spent As Integer = MonthTotal(names(i), month)
      Dim line As String = PadRight(names(i), NameWidth) & PadLeft(AmountText(spent), AmountWidth)
      line = line & " of " & PadLeft(AmountText(allowed), AmountWidth)
      If spent > allowed Then
        line = line & "  over by " & AmountText(spent - allowed)
      Else ' within the budget
        line = line & "  " & AmountText(allowed - spent) & " left"
      End If
      Print line
      shown = shown + 1
    End If
  Next i
  If shown = 0 Then
    Print "There are no budgets. A line of the file gives one: budget expenses:food 400.00"
  End If
End Sub

' Notes that occur often, each with what was paid.
Sub ReportPayees()
  PrintHeading("Most frequent notes")
  Dim counts As NSMutableDictionary = New NSMutableDictionary
  For i = 0 To transactions.Count - 1
    Dim note As String = transactions(i)("note")
    If counts.Contains(note) Then
      counts(note) = counts(note) + 1
    Else ' seen for the first time
      counts(note) = 1
    End If
  Next i
  Dim notes As NSMutableArray = counts.Keys
  For place = 1 To Min(10, notes.Count)
    Dim best As Integer = 0
    For i = 1 To notes.Count - 1
      If counts(notes(i)) > counts(notes(best)) Then
        best = i
      End If
    Next i
    Print PadLeft(CString(counts(notes(best))), 5) & "  " & notes(best)
    notes.Remove(best)
  Next place
End Sub

' Things that are no mistakes, but look like some.
Sub ReportOddities()
  PrintHeading("Check")
  PrintProblems()
  Dim found As Integer = problems.Count
  For i = 1 To transactions.Count - 1
    If IsSameTransaction(transactions(i - 1), transactions(i)) Then
      Print transactions(i)("day") & " " & transactions(i)("note") & ": twice the same"
      found = found + 1
    End If
  Next i
  Dim names As NSMutableArray = SortedAccounts()
  For i = 0 To names.Count - 1
    If StartsWith(names(i), "assets", False) And BalanceOf(names(i), "") < 0 Then
      Print names(i) & ": less than nothing, " & AmountText(BalanceOf(names(i), ""))
      found = found + 1
    End If
  Next i
  If found = 0 Then
    Print "Nothing looks odd."
  End If
End Sub

Function IsSameTransaction(first As NSMutableDictionary, second As NSMutableDictionary) As Boolean
  If first("day") <> second("day") Or first("note") <> second("note") Then
    Return False
  End If
  Dim postings As NSMutableArray = first("postings")
  Dim others As NSMutableArray = second("postings")
  If postings.Count <> others.Count Then
    Return False
  End If
  For i = 0 To postings.Count - 1
    If postings(i)("account") <> others(i)("account") Then
      Return False
    End If
    If postings(i)("cents") <> others(i)("cents") Then
      Return False
    End If
  Next i
  Return True
End Function

' ---------------------------------------------------------------------------------------------------------------------
' Commands
' ---------------------------------------------------------------------------------------------------------------------

' add DATE AMOUNT FROM TO NOTE
Sub AddCommand(words As NSMutableArray)
  If words.Count < 6 Then
    Print "add DATE AMOUNT FROM TO NOTE"
    Return
  End If
  If Not IsDate(words(1)) Then
    Print Quoted(words(1)) & " is no date."
    Return
  End If
  Dim cents As Object = AmountOf(words(2))
  If cents = Nil Then
    Print Quoted(words(2)) & " is no amount."
    Return
  End If
  Dim transaction As NSMutableDictionary = NewTransaction(words(1), RestOf(words, 5), 0)
  transaction("postings").Append(NewPosting(FullAccountName(words(4)), cents))
  transaction("postings").Append(NewPosting(FullAccountName(words(3)), 0 - cents))
  RememberState("the transaction of " & words(1))
  InsertTransaction(transaction)
  Print TextOfTransaction(transaction)
End Sub

' rename OLD NEW: for the accounts below it too.
Sub RenameCommand(words As NSMutableArray)
  If words.Count <> 3 Then
    Print "rename OLD NEW"
    Return
  End If
  Dim oldName As String = FullAccountName(words(1))
  Dim newName As String = words(2)
  If Not accounts.Contains(oldName) Then
    Print "There is no account " & Quoted(oldName) & "."
    Return
  End If
  RememberState("the new name of " & oldName)
  Dim changed As Integer = 0
  For i = 0 To transactions.Count - 1
    Dim postings As NSMutableArray = transactions(i)("postings")
    For p = 0 To postings.Count - 1
      Dim name As String = postings(p)("account")
      If IsBelow(name, oldName) Then
        postings(p)("account") = newName & Mid(name, Len(oldName), Len(name) - Len(oldName))
        changed = changed + 1
      End If
    Next p
  Next i
  RenameBudgets(oldName, newName)
  accounts = New NSMutableDictionary
  For i = 0 To transactions.Count - 1
    RememberAccounts(transactions(i))
  Next i
  Print changed & " postings changed."
End Sub

Sub RenameBudgets(oldName As String, newName As String)
  Dim names As NSMutableArray = budgets.Keys
  For i = 0 To names.Count - 1
    Dim name As String = names(i)
    If IsBelow(name, oldName) Then
      Dim cents As Integer = budgets(name)
      budgets.Remove(name)
      budgets(newName & Mid(name, Len(oldName), Len(name) - Len(oldName))) = cents
    End If
  Next i
End Sub

' balance [FILTER] [DATE]
Sub BalanceCommand(words As NSMutableArray)
  Dim filter As String = ""
  Dim day As String = ""
  For i = 1 To words.Count - 1
    If IsDate(words(i)) Then
      day = words(i)
    Else ' part of an account name
      filter = words(i)
    End If
  Next i
  ReportBalances(filter, day)
End Sub

' register ACCOUNT [FROM [TO]]
Sub RegisterCommand(words As NSMutableArray)
  If words.Count < 2 Then
    Print "register ACCOUNT [FROM [TO]]"
    Return
  End If
  Dim fromDay As String = ""
  Dim toDay As String = ""
  If words.Count > 2 Then
    fromDay = words(2)
  End If
  If words.Count > 3 Then
    toDay = words(3)
  End If
  ReportRegister(FullAccountName(words(1)), fromDay, toDay)
End Sub

' budget [MONTH], or budget ACCOUNT AMOUNT
Sub BudgetCommand(words As NSMutableArray)
  If words.Count = 3 Then
    Dim cents As Object = AmountOf(words(2))
    If cents = Nil Then
      Print Quoted(words(2)) & " is no amount."
      Return
    End If
    Dim account As String = FullAccountName(words(1))
    RememberState("the budget of " & account)
    budgets(account) = cents
    RememberAccount(account)
    Print "In a month " & AmountText(cents) & " may go into " & account & "."
    Return
  End If
  If words.Count = 2 Then
    If Not IsDate(words(1) & "-01") Then
      Print Quoted(words(1)) & " is no month; one is written as 2024-03."
      Return
    End If
    ReportBudget(words(1))
    Return
  End If
  Dim months As NSMutableArray = AllMonths()
  If months.Count = 0 Then
    Print "The ledger is empty."
    Return
  End If
  ReportBudget(months(months.Count - 1))
End Sub

' account [TEXT]: the names that hold a text.
Sub AccountCommand(words As NSMutableArray)
  Dim names As NSMutableArray = SortedAccounts()
  For i = 0 To names.Count - 1
    If words.Count < 2 Then
      Print names(i)
    Else If Contains(names(i), words(1)) Then
      Print names(i)
    End If
  Next i
End Sub

' find TEXT: the transactions whose note or remark holds a text.
Sub FindCommand(words As NSMutableArray)
  Dim wanted As String = LCase(RestOf(words, 1))
  Dim found As Integer = 0
  For i = 0 To transactions.Count - 1
    Dim transaction As NSMutableDictionary = transactions(i)
    Dim text As String = LCase(transaction("note") & " " & transaction("comment"))
    If Contains(text, wanted) Then
      Print TextOfTransaction(transaction)
      found = found + 1
    End If
  Next i
  Print found & " found."
End Sub

Sub HelpCommand()
  Print "balance [TEXT] [DATE]        what is in the accounts"
  Print "register ACCOUNT [FROM [TO]] what happened to one"
  Print "months ACCOUNT               what went into one, month by month"
  Print "budget [MONTH]               what is left of the budgets"
  Print "budget ACCOUNT AMOUNT        sets one"
  Print "payees                       the most frequent notes"
  Print "check                        what looks odd"
  Print "account [TEXT]               the names of the accounts"
  Print "find TEXT                    the transactions with a text"
  Print "add DATE AMOUNT FROM TO NOTE a new transaction"
  Print "rename OLD NEW               another name for an account"
  Print "undo                         takes back the last change"
  Print "save                         writes the file"
  Print "quit                         ends; what is not saved is lost at the second time"
End Sub

Sub QuitCommand()
  If isChanged Then
    Print "There are changes that are not saved. Save them, or quit again."
    isChanged = False
    Return
  End If
  isFinished = True
End Sub

' One line as it was typed.
Sub RunCommand(line As String)
  Dim words As NSMutableArray = WordsOf(line)
  If words.Count = 0 Then
    Return
  End If
  Select Case LCase(words(0))
    Case "balance", "b"
      BalanceCommand(words)
    Case "register", "r"
      RegisterCommand(words)
    Case "months", "m"
      If words.Count < 2 Then
        Print "months ACCOUNT"
      Else ' the account is there
        ReportMonths(FullAccountName(words(1)))
      End If
    Case "budget"
      BudgetCommand(words)
    Case "payees"
      ReportPayees()
    Case "check"
      ReportOddities()
    Case "account", "accounts"
      AccountCommand(words)
    Case "find", "f"
      FindCommand(words)
    Case "add", "a"
      AddCommand(words)
    Case "rename"
      RenameCommand(words)
    Case "undo", "u"
      UndoLast()
    Case "save", "s"
      If SaveLedger() Then
        Print ledgerPath & " is saved."
      End If
    Case "help", "?"
      HelpCommand()
    Case "quit", "q", "exit"
      QuitCommand()
    Case Else
      Print Quoted(words(0)) & " is no command; help lists them all."
  End Select
End Sub

' ---------------------------------------------------------------------------------------------------------------------
' The program
' ---------------------------------------------------------------------------------------------------------------------

' A month of a household, to try the commands on.
Function SampleLedger() As String
  Dim lines As NSMutableArray = New NSMutableArray
  lines.Append("budget expenses:food 320.00")
  lines.Append("budget expenses:leisure 90.00")
  lines.Append("")
  lines.Append("2024-02-28 Salary")
  lines.Append("  assets:bank           2,480.00")
  lines.Append("  income:salary")
  lines.Append("")
  lines.Append("2024-03-01 Rent for March ; by standing order")
  lines.Append("  expenses:rent           780.00")
  lines.Append("  assets:bank")
  lines.Append("")
  lines.Append("2024-03-02 Market")
  lines.Append("  expenses:food            46.35")
  lines.Append("  assets:cash             -46.35")
  lines.Append("")
  lines.Append("2024-03-02 Cash machine")
  lines.Append("  assets:cash             150.00")
  lines.Append("  assets:bank")
  lines.Append("")
  lines.Append("2024-03-09 Theatre and supper")
  lines.Append("  expenses:leisure         64.00")
  lines.Append("  expenses:food            38.50")
  lines.Append("  assets:cash")
  lines.Append("")
  lines.Append("2024-03-15 Electricity")
  lines.Append("  expenses:energy          71.20")
  lines.Append("  assets:bank")
  Dim text As String = ""
  For i = 0 To lines.Count - 1
    text = text & lines(i) & Character(10)
  Next i
  Return text
End Function

' The commands that work on the sample when there is no file.
Sub ShowSample()
  ParseLedger(SampleLedger())
  RunCommand("balance")
  RunCommand("register bank")
  RunCommand("months expenses")
  RunCommand("budget 2024-03")
  RunCommand("add 2024-03-16 12.80 cash food Bakery")
  RunCommand("rename expenses:food expenses:household:food")
  RunCommand("balance expenses")
  RunCommand("undo")
  RunCommand("undo")
  RunCommand("check")
End Sub

Sub RunScript(path As String)
  Dim lines As NSMutableArray = Split(ReadString(Location(path)), Character(10))
  For i = 0 To lines.Count - 1
    If isFinished Then
      Exit For
    End If
    RunCommand(lines(i))
  Next i
End Sub

Function Main(arguments As NSMutableArray) As Integer
  isFinished = False
  If arguments.Count = 0 Then
    ClearLedger()
    history = New NSMutableArray
    ledgerPath = DefaultFile
    ShowSample()
    Return 0
  End If
  OpenLedger(arguments(0))
  If arguments.Count = 1 Then
    RunCommand("balance")
    RunCommand("check")
    Return problems.Count
  End If
  For i = 1 To arguments.Count - 1
    If StartsWith(arguments(i), "@", True) Then
      RunScript(Mid(arguments(i), 1, Len(arguments(i)) - 1))
    Else ' a command by itself
      RunCommand(arguments(i))
    End If
  Next i
  If isChanged Then
    PrintError "ledger: there are changes that were not saved"
    Return 1
  End If
  Return 0
End Function
