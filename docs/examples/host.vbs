' A host in a script: it hands its session to the component, adds a patient and shows a list. Run it with
' "cscript //nologo host.vbs" where TWSESC22.dll and practice_host.dll are registered; the latter stands for the
' suite's own database, with a demo practice in the current folder. It has no window that could be frmOwner, and hears
' no events; host.cpp does both.
Option Explicit

' --- The session, as the component calls it (PV). A suite answers from its own settings, logs and locks.

Class Session
  Public Connection ' by ADO's names
  Public Prepare    ' what translates statements to the engine's words
  Private options
  Private held

  Private Sub Class_Initialize
    Set options = CreateObject("Scripting.Dictionary")
    Set held = CreateObject("Scripting.Dictionary")
  End Sub

  ' Which database, and which office of it
  Public Property Get DatabaseKind
    DatabaseKind = Prepare.DatabaseKind
  End Property
  Public Property Get CurrentOfficeID
    CurrentOfficeID = Prepare.CurrentOfficeID
  End Property
  Public Function PrepareSQL(statement, flag)
    PrepareSQL = Prepare.PrepareSQL(statement, flag)
  End Function
  Public Function KeepsRowGuids(table)
    KeepsRowGuids = Prepare.KeepsRowGuids(table)
  End Function

  ' Who works, and with which rights and settings
  Public Property Get UserName
    UserName = "FRONT"
  End Property
  Public Function HasRight(keyword)
    HasRight = (keyword <> "DELETE-PATIENT")
  End Function
  Public Function OfficeSetting(section, key)
    OfficeSetting = ""
  End Function
  Public Function UserOption(section, key)
    UserOption = ""
    If options.Exists(section & "." & key) Then UserOption = options(section & "." & key)
  End Function
  Public Sub SetOfficeSetting(section, key, value)
  End Sub
  Public Sub SetUserOption(section, key, value)
    options(section & "." & key) = value
  End Sub

  ' What the suite keeps for all its programs
  Public Sub RecordHandOff(idColumn, table, id)
    WScript.Echo "handed off: " & table & "." & idColumn & " " & id
  End Sub
  Public Sub CurrentPersonType(key)
  End Sub
  Public Sub Log(kind, category, person, text)
    WScript.Echo kind & " " & category & ": " & text
  End Sub
  Public Function HoldRecord(table, id)
    HoldRecord = Not held.Exists(table & " " & id)
    held(table & " " & id) = True
  End Function
  Public Sub ReleaseRecord(table, id)
    held.Remove table & " " & id
  End Sub
  Public Function HeldByAnother(table, id)
    HeldByAnother = False
  End Function
  Public Function AccountOf(person)
    AccountOf = Array(0, 0, 0)
  End Function

  ' The machine
  Public Property Get Now
    Now = VBScriptNow
  End Property
  Public Property Get DataFolder
    DataFolder = "."
  End Property
  Public Property Get ProgramFolder
    ProgramFolder = "."
  End Property
  Public Function StartProgram(commandLine)
    StartProgram = False
  End Function

  ' The reminder service
  Public Function SendReminder(method, receiver, subject, text)
    SendReminder = False
  End Function
End Class

Function VBScriptNow
  VBScriptNow = Now
End Function

' --- The database

Dim practice, reference, pv
Set practice = CreateObject("PracticeDesk.Practice")
practice.OpenDemo "demo.sqlite", 50
Set reference = practice.LogIn("front", "front")
Set pv = New Session
Set pv.Prepare = reference
Set pv.Connection = reference.Connection

' --- A new patient

Dim screens, id, book
Set screens = CreateObject("twSimpleEditScreens.EditingScreen")
Set screens.PV = pv
id = "NEW"
book = True ' offers to book an appointment
screens.Load_PatInfo_Small id, "Smith, John", book ' id and book come back
If id = "NEW" Then
  WScript.Echo "no patient was added"
Else
  Dim row
  Set row = pv.Connection.Execute("SELECT pLASNAM, pFIRNAM, pADD1 FROM PATable WHERE pID = " & id)
  WScript.Echo "added: " & row("pFIRNAM") & " " & row("pLASNAM") & ", " & row("pADD1")
  If book Then WScript.Echo "to be booked"
End If

' --- A list

Const lulEmployee = 6
Dim list
Set list = CreateObject("twSimpleEditScreens.LookUpList")
list.ListType = lulEmployee
list.ListTitle = "Who takes the call?"
list.ShowList ' its arguments are left out
If list.SelectedID = 0 Then
  WScript.Echo "nobody was chosen"
Else
  WScript.Echo "chosen: " & list.Select_String
End If

' --- The end: the component holds the session for all its objects until it is told

Set screens.PV = Nothing
