' Assertions of the script tests in VBScript. run-script puts this file before the test, which calls Finish
' last.

Dim checks, failures
checks = 0
failures = 0

' The codes of failures. They arrive as they are because each failure says why: for one without words the
' language has numbers of its own.
Const NotImplemented = -2147467263
Const InvalidArgument = -2147024809
Const Unspecified = -2147467259

Sub Fail(text)
    failures = failures + 1
    WScript.Echo "FAILED: " & text
End Sub

' The value, of the same kind, is what is expected.
Sub Equal(expected, value, what)
    checks = checks + 1
    If VarType(value) <> VarType(expected) Then
        Fail what & ": kind " & VarType(value) & " instead of " & VarType(expected)
    ElseIf value <> expected Then
        Fail what & ": " & value & " instead of " & expected
    End If
End Sub

' The operation before this has raised an error of this number, and has said why. To be used below On Error
' Resume Next.
Sub Raised(number, what)
    Dim found, source, description
    found = Err.Number
    source = Err.Source
    description = Err.Description
    Err.Clear
    checks = checks + 1
    If found <> number Then
        Fail what & ": raised " & found & " instead of " & number
    ElseIf number <> 0 And (source <> "Tarnvale.nuxStdParts" Or description = "") Then
        Fail what & ": does not say why"
    End If
End Sub

' The operation before this has raised nothing.
Sub Worked(what)
    Raised 0, what
End Sub

' Ends the test. The last line and the exit code tell whether it has passed. A check whose own arguments fail
' is left out below On Error Resume Next: that is seen by the number of checks.
Sub Finish(expectedChecks)
    If checks <> expectedChecks Then Fail checks & " checks were made instead of " & expectedChecks
    If failures = 0 Then
        WScript.Echo "all " & checks & " checks passed"
        WScript.Quit 0
    End If
    WScript.Echo failures & " of " & checks & " checks failed"
    WScript.Quit 1
End Sub
