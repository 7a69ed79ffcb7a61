' A host that knows nothing of the component but its names. Prints a line for every expectation that does not hold.
Option Explicit
Dim failures : failures = 0

Sub Expect(what, holds)
  If Not holds Then
    failures = failures + 1
    WScript.Echo "not so: " & what
  End If
End Sub

Class Session
  Public Property Get CurrentOfficeID
    CurrentOfficeID = 3
  End Property
End Class

Dim screen, list, pv, number
Set screen = CreateObject("twSimpleEditScreens.EditingScreen")
Set list = CreateObject("twSimpleEditScreens.LookUpList")
Set pv = New Session

Dim told : Set told = CreateObject("WScript.Shell").Environment("PROCESS")

' Properties keep their types.
screen.ExtraID = "12"
Expect "a number given as text is a number", screen.ExtraID = 12
list.ListTitle = "Providers of ""O'Hara""; 100%"
Expect "text comes back as it was given", list.ListTitle = "Providers of ""O'Hara""; 100%"
Expect "rows can be deleted at first", list.AllowDelete
list.AllowDelete = False
Expect "a Boolean is kept", Not list.AllowDelete

' The slots are reached by name on both classes, and are one.
Expect "a slot is empty at first", screen.PV Is Nothing
Set screen.PV = pv
Expect "what one class holds the other gives", list.PV Is pv
Set list.DAC = pv
Expect "DAC is a slot", screen.DAC Is pv
Set list.DAC = Nothing
Expect "Nothing clears a slot", screen.DAC Is Nothing
Set list.frmOwner = pv
Expect "an owner is kept", list.frmOwner Is pv
On Error Resume Next
Set list.frmOwner = Nothing
number = list.frmOwner(1)
Expect "a property takes no argument", Err.Number <> 0
On Error GoTo 0

' By-reference arguments, given, not changed, and left out.
Dim id, book
id = "NEW"
book = True
screen.Load_PatInfo_Small id, "Smith", book
Expect "a member that PV lacks is named", InStr(told("SCREEN_TOLD"), "does not offer ""DatabaseKind""") > 0
Expect "the ID stays as it was given", id = "NEW"
number = 7
screen.Ins_Company_Start number
Expect "a number stays as it was given", number = 7
screen.Load_PatInfo_Small
screen.Employer_Start id, , number
Expect "nothing is changed by Employer_Start", id = "NEW" And number = 7

Dim name, mode, names
screen.SetPrinter "Laser", "A4", "LPT1"
screen.GetPrinter name, mode, names
Expect "the printer is kept", name = "Laser" And mode = "A4" And names = "LPT1"

' A title holds for one call.
list.ShowList
Expect "the title is gone after a call", list.ListTitle = ""

Set screen.PV = Nothing
WScript.Echo "failed expectations: " & failures
