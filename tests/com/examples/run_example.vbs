' Runs the script of the example as it stands, while somebody works in its windows.
Option Explicit
Dim person : Set person = CreateObject("PracticeTest.Person")
person.Do "await New Patient Information"
ExecuteGlobal CreateObject("Scripting.FileSystemObject").OpenTextFile("host.vbs").ReadAll
Dim failure : failure = person.Failure
If failure = "" Then failure = "everything was there"
WScript.Echo failure
