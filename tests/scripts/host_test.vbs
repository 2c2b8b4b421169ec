' The component with the objects of a host, which Tarnvale.SampleHost gives out.

Const OutOfMemory = -2147024882

Dim files, folder, host, parts
Set files = CreateObject("Scripting.FileSystemObject")
folder = WScript.Arguments(0) & "\"
Set host = CreateObject("Tarnvale.SampleHost")

MakeInstallation
Set parts = host.Start(folder & "catalogs\", folder & "data\", folder & "gui\", folder & "custom\")
TestStart
TestStatusBar
TestPages
TestWizards
TestFailures
TestReferences
Finish 36

Sub Write(name, text)
    Dim file
    Set file = files.CreateTextFile(folder & name, True)
    file.Write text
    file.Close
End Sub

Sub MakeInstallation
    Dim name
    For Each name In Array("catalogs", "catalogs\BOLTS", "data", "gui", "custom")
        files.CreateFolder folder & name
    Next
    Write "catalogs\BOLTS\Catalog.xml", "<Catalog><Part><ID>M8</ID><Geometry>page.htm</Geometry></Part></Catalog>"
    Write "catalogs\BOLTS\page.htm", "<p>Bolt</p>"
    Write "data\Tarnvale.htm", "<p>Start</p>"
End Sub

' What the component has asked since the last look.
Sub Asked(expected, what)
    Dim lines, line
    For Each line In expected
        If lines <> "" Then lines = lines & vbLf
        lines = lines & line
    Next
    Equal "" & lines, host.Calls, what
    host.ClearCalls
End Sub

Sub TestStart
    Asked Array("Inux3DReady", "AttachHost", "MainWindowHWND", "GetWindow"), "what a start asks"
    parts.UserData = "kept"
    Equal "kept", host.StdParts.UserData, "StdParts of the host"
    Equal "kept", host.ExternalDispatch.StdParts.UserData, "StdParts of the external dispatch"
    host.WindowHandle = 4660
    Equal CLng(4660), host.ExternalDispatch.MainWindowHWND, "MainWindowHWND"
    Equal CLng(4660), host.Application.MainObject.MainWindowHWND, "MainWindowHWND of the main object"
    Equal folder & "catalogs\", host.Application.CatalogFolder(""), "the folder of all catalogues"
    Equal folder & "catalogs\BOLTS\", host.Application.CatalogFolder("BOLTS"), "the folder of one"
    host.ClearCalls
End Sub

Sub TestStatusBar
    parts.SetStatusMessage "at work"
    parts.CreateProgressBar
    parts.UpdateProgressBar 40
    Equal "at work", host.StatusBar.Message, "message"
    Equal CLng(40), host.StatusBar.Progress, "progress"
    Equal True, host.StatusBar.HasProgressBar, "progress bar"
    parts.DestroyProgressBar
    Asked Array("SetMessage at work", "CreateProgressBar", "SetProgress 40", "DestroyProgressBar"), "status bar"
    On Error Resume Next
    host.StatusBarLacks "SetMessage"
    Set parts.StatusBar = host.StatusBar
    Raised Unspecified, "a status bar without SetMessage"
    parts.SetStatusMessage "nobody sees it"
    Worked "a message without a status bar"
    host.Restore
    Set parts.StatusBar = host.StatusBar
    Worked "a whole status bar"
    On Error Goto 0
    Asked Array(), "the lacking one was not called"
End Sub

Sub TestPages
    Dim start, bolt
    start = "file://" & folder & "data\Tarnvale.htm"
    bolt = "file://" & folder & "catalogs\BOLTS\page.htm"
    parts.Navigate start
    Asked Array("Navigate " & start), "a page"
    host.EditComponent "BOLTS", "M8"
    parts.SetEditedComponent host.EditedComponent, 1
    Asked Array("GetValue Catalog", "GetValue ID", "GetApplication", "CatalogFolder BOLTS", "Navigate " & bolt), _
        "an edited component"
    Equal bolt, parts.WebBrowser.LocationURL, "the browser's address"
    Equal "M8", parts.EditedComponent.GetValue("ID"), "EditedComponent"
    host.ClearCalls
    parts.GetComponent "BOLTS", "M8"
    Asked Array("Close", "GetApplication", "CatalogFolder BOLTS"), "GetComponent"
    Equal "BOLTS M8", parts.CatalogID & " " & parts.ComponentID, "the IDs"
    parts.SetEditedComponent Empty, 0
    Asked Array("Navigate " & start), "none is edited: the default page"
End Sub

Sub TestWizards
    parts.RunDieWizard 3
    parts.CreateDieBlock
    parts.RunSlideWizard
    parts.LifterWizard.Run
    Asked Array("RunDieWizard 3", "CreateDieBlock", "RunSlideWizard", "LifterWizard", "Run"), "the wizards"
End Sub

Sub TestFailures
    On Error Resume Next
    host.Fail "CreateDieBlock", &H80004001, 2
    parts.CreateDieBlock
    Worked "the first CreateDieBlock"
    parts.CreateDieBlock
    Raised NotImplemented, "the second CreateDieBlock"
    parts.CreateDieBlock
    Worked "the third CreateDieBlock"
    host.Fail "SetMessage", &H8007000E
    parts.SetStatusMessage "lost"
    Raised OutOfMemory, "SetStatusMessage"
    parts.SetEditedComponent host.StatusBar, 1
    Raised InvalidArgument, "a foreign object"
    host.Fail "Nothing", Unspecified
    Equal "There is no call of the name ""Nothing"".", Err.Description, "a description"
    Err.Clear
    host.Answer "GetApplication", Nothing
    parts.TRNVExportDlg 0
    Raised Unspecified, "an export without an application"
    host.Restore
    On Error Goto 0
End Sub

Sub TestReferences
    Dim name
    Equal CLng(1), host.References("Side3D"), "the component holds the 3D side"
    host.Stop
    Set parts = Nothing
    For Each name In Array("Side3D", "Application", "ExternalDispatch", "StatusBar")
        Equal CLng(0), host.References(name), "references on " & name
    Next
    Equal CLng(1), host.References("Browser"), "the one that stays on the browser"
End Sub
