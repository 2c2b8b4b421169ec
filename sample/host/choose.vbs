' A script client of nuxStdParts: lets the user choose a size of a component, as a wizard page does, and prints the
' attributes of the chosen row.
'   cscript //nologo choose.vbs FOLDER      FOLDER is the installation, with a closing backslash
' choose.js is the same in JScript.

Option Explicit

Const Catalog = "SCREWS"
Const Component = "ISO4762"

Sub Choose(folder)
    Dim stdParts, part, chosen, attribute, line
    Set stdParts = CreateObject("Tarnvale.nuxStdParts")
    stdParts.SetTRNVPaths folder & "catalogs\", folder & "data\", folder & "gui\", folder & "custom\"

    Set part = stdParts.GetComponentsDocument(Catalog).selectSingleNode("//Part[ID='" & Component & "']")
    ' The default values and the lists of rows stand here as expressions. Of a variable the language would hand over
    ' a reference, which counts as no rows.
    Set chosen = stdParts.ChooseDimensions(Catalog, Component, _
        part.selectNodes("Dimensions/*"), part.selectSingleNode("DefaultValues"), _
        stdParts.GetStdDimensionNode(Catalog, Component).selectNodes("Row"), _
        stdParts.GetUsrDimensionNode(Catalog, Component).selectNodes("Row"))
    If chosen Is Nothing Then
        WScript.Echo "nothing chosen"
        Exit Sub
    End If
    For Each attribute In chosen.attributes
        line = line & "  " & attribute.name & "=" & attribute.value
    Next
    WScript.Echo "chosen:" & Mid(line, 2)
End Sub

' Not every script host tells of an error that nobody catches.
On Error Resume Next
Choose WScript.Arguments(0)
If Err.Number <> 0 Then
    WScript.Echo "choose.vbs: error " & LCase(Hex(Err.Number)) & " " & Err.Description
    WScript.Quit 1
End If
