' A host that has a practice, in front of whose screens somebody closes each as it opens. Prints a line for every
' expectation that does not hold.
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
For Each name In Array("insurance.sqlite", "insurance.sqlite-wal", "insurance.sqlite-shm", "insurance.sqlite-locks")
  If files.FileExists(name) Then files.DeleteFile name
Next
Dim practice : Set practice = CreateObject("PracticeDesk.Practice")
practice.OpenDemo "insurance.sqlite", 12
Dim screens : Set screens = CreateObject("twSimpleEditScreens.EditingScreen")
Set screens.PV = practice.LogIn("admin", "admin")
Dim patient
patient = screens.PV.Connection.Execute("SELECT Min(CovPatID) FROM CovTable " & _
    "INNER JOIN PATable ON CovPatID=pID AND CovTable.OfficeID=PATable.OfficeID WHERE pPriRenFla IS NULL")(0).Value

Expect "no coverage is chosen", screens.Select_Coverage(1) = 0
Expect "no coverage is saved", screens.Edit_Patient_Coverage(patient) = False
Expect "nothing is adjusted", screens.Edit_PPO_Adjustment = False

Dim code, office, allowed, percent, payment, portion
code = "D2701"
office = "100"
allowed = Empty
percent = 80
payment = Null
Expect "no split is accepted", _
  screens.Edit_AdjustPlan_Info(1, 1, 1, code, office, allowed, , percent, payment, , portion, True) = False
Expect "arguments keep their types", TypeName(office) = "String" And TypeName(percent) = "Integer"
Expect "what was empty is empty", IsEmpty(allowed) And IsNull(payment) And IsEmpty(portion)
Expect "the others are as given", code = "D2701" And office = "100" And percent = 80

Set screens.PV = Nothing
WScript.Echo "failed expectations: " & failures
