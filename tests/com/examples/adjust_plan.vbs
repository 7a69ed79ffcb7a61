' A host in a script that has fees split, and prints what comes back.
Option Explicit
Dim practice, screens
Set practice = CreateObject("PracticeDesk.Practice")
practice.OpenDemo "demo.sqlite", 12
Set screens = CreateObject("twSimpleEditScreens.EditingScreen")
Set screens.PV = practice.LogIn("admin", "admin")

Dim code, office, allowed, calculation, percent, payment, adjustment, portion, accepted
code = "D2701"
allowed = 1120
calculation = "1000"
percent = 62.5
accepted = screens.Edit_AdjustPlan_Info(1, 1, 1, code, office, allowed, calculation, percent, payment, adjustment, _
  portion, False)
WScript.Echo accepted & ": " & TypeName(payment) & " " & payment & " + " & adjustment & " + " & portion & " = " & office
WScript.Echo TypeName(allowed) & " " & allowed & ", " & TypeName(calculation) & " " & calculation & ", " & percent
WScript.Echo "" & screens.Edit_PPO_Adjustment

Set screens.PV = Nothing
