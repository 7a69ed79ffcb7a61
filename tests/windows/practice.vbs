' A script over a practice of its own. Prints a line for every expectation that does not hold.
Option Explicit
Dim failures : failures = 0

Sub Expect(what, holds)
  If Not holds Then
    failures = failures + 1
    WScript.Echo "not so: " & what
  End If
End Sub

Dim files : Set files = CreateObject("Scripting.FileSystemObject")
Dim name
For Each name In Array("practice.sqlite", "practice.sqlite-wal", "practice.sqlite-shm")
  If files.FileExists(name) Then files.DeleteFile name
Next

Dim practice : Set practice = CreateObject("PracticeDesk.Practice")

' A refusal says what is wrong.
On Error Resume Next
practice.LogIn "admin", "admin"
Expect "a login needs a practice", InStr(Err.Description, "No practice is open") > 0
Err.Clear
practice.Open "sqlite:practice.sqlite"
Expect "a file that is not there cannot be opened", Err.Number <> 0
Err.Clear
practice.OpenDemo "practice.sqlite", 12
Expect "a demo practice is made: " & Err.Description, Err.Number = 0
Err.Clear
practice.LogIn "admin", "wrong"
Expect "a wrong password is refused", InStr(Err.Description, "do not belong together") > 0
Err.Clear
practice.LogIn "admin", "admin", 99
Expect "an office that is not there is refused", InStr(Err.Description, "no office 99") > 0
On Error GoTo 0

Dim pv : Set pv = practice.LogIn("Admin", "admin")
Set practice = Nothing
Expect "the session knows its user", LCase(pv.UserName) = "admin"
Expect "the supervisor has a right", pv.HasRight("EDIT-EMP-INS")
Expect "the clock is a date", IsDate(pv.Now) And Year(pv.Now) > 2000
Expect "the data lies beside the database", files.FileExists(pv.DataFolder & "\practice.sqlite")
Expect "the program folder holds the library", files.FileExists(pv.ProgramFolder & "\practice_host.dll")
pv.SetUserOption "SESC_LUL", "key", "50 % of ""all"""
Expect "an option is kept", pv.UserOption("SESC_LUL", "key") = "50 % of ""all"""

Dim connection : Set connection = pv.Connection
Dim affected

Function Run(sql)
  Set Run = connection.Execute(pv.PrepareSQL(sql, 1), affected)
End Function

' Rows one by one, and in blocks.
Dim rows, names, block, count, id
Set rows = Run("SELECT pID, pLasNam, pBirDat FROM PATable WHERE pTypPat >= '1' ORDER BY pID")
Expect "a field by name is a field by number", rows("pID") = rows.Fields(0).Value And rows.Fields.Item("PID").Name = "pID"
Expect "a date is a date", VarType(rows("pBirDat").Value) = vbDate Or IsNull(rows("pBirDat").Value)
id = rows("pID").Value
Do Until rows.EOF
  count = count + 1
  names = names & rows("pLasNam") & ";"
  rows.MoveNext
Loop
Expect "every patient is read", count >= 12
rows.Close
Expect "a recordset that was closed is closed", rows.State = 0
Set rows = Run("SELECT pLasNam FROM PATable WHERE pTypPat >= '1' ORDER BY pID")
block = rows.GetRows(5)
Expect "a block is by field and row", UBound(block, 1) = 0 And UBound(block, 2) = 4
Expect "a block holds the rows", Left(names, Len(block(0, 0)) + 1) = block(0, 0) & ";"
block = rows.GetRows
Expect "the other rows come at once", UBound(block, 2) = count - 6 And rows.EOF

' A transaction that is taken back.
Function LastName
  LastName = Run("SELECT pLasNam FROM PATable WHERE pID = " & id)("pLasNam")
End Function
Dim before : before = LastName
connection.BeginTrans
Expect "a statement without rows is closed", Run("UPDATE PATable SET pLasNam = 'O''Hara' WHERE pID = " & id).State = 0
Expect "how many rows it changed is not known", affected = -1
Expect "a change is seen", LastName = "O'Hara"
connection.RollbackTrans
Expect "a change is taken back", LastName = before

' What the database refuses.
On Error Resume Next
connection.Execute "SELECT FROM WHERE"
Expect "a refusal has ADO's number", Err.Number = &H80040E14
Expect "a refusal has the engine's words", InStr(Err.Description, "syntax error") > 0
On Error GoTo 0
Expect "it is told by Errors", connection.Errors.Count = 1
Expect "in the same words", InStr(connection.Errors(0).Description, "syntax error") > 0
Expect "with the engine's number", connection.Errors(0).NativeError <> 0
Run "SELECT 1"
Expect "success clears Errors", pv.Connection.Errors.Count = 0

' What is held keeps the practice open.
Set pv = Nothing
Set rows = connection.Execute("SELECT 'still there' AS said")
Set connection = Nothing
Expect "rows outlive their session", rows("said") = "still there"

WScript.Echo "failed expectations: " & failures
