' Runs an example's script as it stands, in an engine of its own, while somebody does the steps in its windows.
Option Explicit
Dim person, engine, failure
Set person = CreateObject("PracticeTest.Person")
person.Do CreateObject("WScript.Shell").Environment("PROCESS")("STEPS")
Set engine = CreateObject("MSScriptControl.ScriptControl")
engine.Language = "VBScript"
engine.AddObject "WScript", WScript
engine.AddCode CreateObject("Scripting.FileSystemObject").OpenTextFile(WScript.Arguments(0)).ReadAll
failure = person.Failure
If failure = "" Then failure = "everything was there"
WScript.Echo failure
