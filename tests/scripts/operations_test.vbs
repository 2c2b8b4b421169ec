' Every operation of the automation object, called from VBScript. What needs objects of the host, or shows a
' window, is called here as far as it fails without them.

Dim parts, data, folder, files
folder = WScript.Arguments(0) & "\"
Set parts = CreateObject("Tarnvale.nuxStdParts")
Set files = CreateObject("Scripting.FileSystemObject")

TestValues
TestDataManager
TestDocuments
TestArrays
TestChoiceOfDimensions
TestLanguageAndLog
TestNotOffered
Finish 94

Sub TestValues
    On Error Resume Next
    Equal "", parts.UserData, "UserData at first"
    parts.UserData = "some text"
    Equal "some text", parts.UserData, "UserData"
    parts.LastRVCCmdResult = "done"
    Equal "done", parts.LastRVCCmdResult, "LastRVCCmdResult"
    Equal Empty, parts.GlobalData, "GlobalData at first"
    parts.GlobalData = 2.5
    Equal 2.5, parts.GlobalData, "GlobalData is a number"
    Dim value
    parts.GlobalData = Array(1, "two", 3)
    value = parts.GlobalData
    Equal "two", value(1), "GlobalData is an array"
    value = "of a variable"
    parts.GlobalData = value
    value = "changed"
    Equal "of a variable", parts.GlobalData, "GlobalData is a copy"
    Worked "values"

    Equal CLng(0), parts.Initialised, "Initialised at first"
    parts.Initialised = 1
    Equal CLng(1), parts.Initialised, "Initialised"
    parts.Initialised = 2
    Raised InvalidArgument, "Initialised = 2"
    Equal CLng(1), parts.Initialised, "Initialised stays"
    Equal "", parts.Version, "Version gives no text"
    parts.AssertFail
    Worked "AssertFail"

    Equal True, parts.nux3D Is Nothing, "nux3D at first"
    Equal True, parts.EditedComponent Is Nothing, "EditedComponent"
    Equal True, parts.LifterWizard Is Nothing, "LifterWizard without its class"
    Worked "objects that are absent"
    Set parts.nux3D = files
    Worked "nux3D"
    Equal True, parts.nux3D Is files, "nux3D"
    Set parts.nux3D = Nothing
    Equal True, parts.nux3D Is Nothing, "nux3D after that"
    parts.RunDieWizard 1
    Raised Unspecified, "RunDieWizard without a 3D side"
    parts.CreateDieBlock
    Raised Unspecified, "CreateDieBlock without a 3D side"
    parts.RunSlideWizard
    Raised Unspecified, "RunSlideWizard without a 3D side"
    parts.Initialised = 0
    parts.SetExternalDispatch Nothing
    Raised InvalidArgument, "SetExternalDispatch of Nothing"
    Equal CLng(0), parts.Initialised, "Initialised after that"
    parts.SetExternalDispatch files
    Raised Unspecified, "SetExternalDispatch without a 3D side"
    Equal CLng(1), parts.Initialised, "Initialised after that"
End Sub

Sub TestDataManager
    On Error Resume Next
    Set data = parts.DataManager
    Worked "DataManager"
    Dim read
    read = data.CatalogName
    Raised Unspecified, "CatalogName before it was set"
    read = data.Units
    Raised Unspecified, "Units before they were set"
    read = data.CavityPlateSizes
    Raised Unspecified, "CavityPlateSizes before they were set"
    read = data.CorePlateSizes
    Raised Unspecified, "CorePlateSizes before they were set"
    data.CatalogName = "BOLTS"
    data.Units = "mm"
    Equal "BOLTS", data.CatalogName, "CatalogName"
    Equal "mm", data.Units, "Units"
    data.CavityPlateSizes = Array(246, 296, 27)
    data.CorePlateSizes = Array(246, 296, 36)
    Worked "sizes"
    read = data.CavityPlateSizes
    Equal 27, read(2), "CavityPlateSizes"
    read = data.CorePlateSizes
    Equal 36, read(2), "CorePlateSizes"
    data.Units = 5
    Raised InvalidArgument, "Units = 5"
    data.CatalogName = 5
    Raised InvalidArgument, "CatalogName = 5"
    data.CorePlateSizes = "1,2"
    Raised InvalidArgument, "a text as sizes"
    data.CavityPlateSizes = "1,2"
    Raised InvalidArgument, "a text as sizes"

    ' What stands in a variable reaches the object as a reference to it.
    Dim text, sizes
    text = "of a variable"
    sizes = Array(1, 2, 4)
    data.CatalogName = text
    Raised InvalidArgument, "a variable as CatalogName"
    data.CavityPlateSizes = sizes
    Raised InvalidArgument, "a variable as CavityPlateSizes"
    data.CatalogName = CStr(text)
    data.CavityPlateSizes = data.CorePlateSizes
    parts.UserData = text
    Worked "values of expressions"
    text = "changed"
    Equal "of a variable", data.CatalogName, "CatalogName"
    Equal "of a variable", parts.UserData, "UserData"
    read = data.CavityPlateSizes
    Equal 36, read(2), "CavityPlateSizes"
    data.ClearData
    Worked "ClearData"
    read = data.CavityPlateSizes
    Raised Unspecified, "CavityPlateSizes after ClearData"
    Equal "mm", data.Units, "Units after ClearData"
End Sub

Sub TestArrays
    ' The lists of the XML DOM have a length and elements like a script's array; VBScript's arrays don't.
    On Error Resume Next
    Dim sizes, result
    Set sizes = parts.GetStdDimensionNode("BOLTS", "M8")
    result = parts.JSArray2SafeArray(sizes.selectNodes("D"))
    Worked "JSArray2SafeArray"
    Equal 1, CInt(UBound(result)), "its upper bound"
    Equal "D", result(1).nodeName, "an element"
    result = parts.JSArray2SafeArray(sizes.selectNodes("E"))
    Worked "an empty list"
    Equal -1, CInt(UBound(result)), "its upper bound"
    Worked "an empty array"
    result = parts.JSArray2SafeArray(files)
    Raised InvalidArgument, "an object without length"
    result = parts.JSArray2SafeArray(Nothing)
    Raised InvalidArgument, "Nothing"
End Sub

Sub TestChoiceOfDimensions
    ' What stands in a variable would reach the object as a reference to it, which counts as no rows.
    On Error Resume Next
    Dim root, chosen
    Set root = parts.GetStdDimensionNode("BOLTS", "M8")
    Set chosen = parts.ChooseDimensions("BOLTS", "M8", Nothing, Empty, Empty, Empty)
    Raised InvalidArgument, "no names"
    Set chosen = parts.ChooseDimensions("BOLTS", "M8", root, Empty, Empty, Empty)
    Raised InvalidArgument, "a node as names"
    Set chosen = parts.ChooseDimensions("BOLTS", "M8", root.selectNodes("D"), root.childNodes, Empty, Empty)
    Raised InvalidArgument, "a list as the values that are selected first"
    Set chosen = parts.ChooseDimensions("BOLTS", "M8", root.selectNodes("D"), Empty, root.firstChild, Empty)
    Raised InvalidArgument, "a node as standard rows"
    Set chosen = parts.ChooseDimensions("BOLTS", "M8", root.selectNodes("D"), Empty, Empty, root.firstChild)
    Raised InvalidArgument, "a node as user's rows"
End Sub

Sub Write(name, text)
    Dim path, steps, i
    path = folder
    steps = Split(name, "\")
    For i = 0 To UBound(steps) - 1
        path = path & steps(i) & "\"
        If Not files.FolderExists(path) Then files.CreateFolder path
    Next
    parts.SaveFile folder & name, text
End Sub

Sub TestDocuments
    On Error Resume Next
    Dim result
    Write "catalogs\BOLTS\Catalog.xml", "<Catalog><Part><ID>M8</ID><Name>Bolt</Name></Part></Catalog>"
    Write "catalogs\BOLTS\StdDimensions\M8.xml", "<Dims><D/><D/></Dims>"
    Write "custom\catalogs\BOLTS\UsrDimensions\M8.xml", "<Dims><D/></Dims>"
    Worked "SaveFile"
    parts.SaveFile folder & "missing\file", "text"
    Raised Unspecified, "SaveFile into a missing folder"
    parts.SetTRNVPaths folder & "catalogs\", folder & "data\", folder & "gui\", folder & "custom\"
    Worked "SetTRNVPaths"
    Equal "Bolt", parts.GetComponentsDocument("BOLTS").selectSingleNode("//Part[ID='M8']/Name").text, _
        "GetComponentsDocument"
    Set result = parts.GetXMLDocument("file://" & folder & "catalogs\BOLTS\Catalog.xml")
    Equal "Catalog", result.documentElement.nodeName, "GetXMLDocument"
    Equal CLng(2), parts.GetStdDimensionNode("BOLTS", "M8").selectNodes("D").length, "GetStdDimensionNode"
    Equal CLng(1), parts.GetUsrDimensionNode("BOLTS", "M8").selectNodes("D").length, "GetUsrDimensionNode"
    Worked "documents"
    Set result = parts.GetComponentsDocument("NUTS")
    Raised Unspecified, "an unknown catalogue"
    Set result = parts.GetXMLDocument("file://" & folder & "missing.xml")
    Raised Unspecified, "an unknown document"
    Set result = parts.GetStdDimensionNode("BOLTS", "M9")
    Raised Unspecified, "an unknown component"
    Set result = parts.GetUsrDimensionNode("BOLTS", "M9")
    Raised Unspecified, "a component without user's sizes"
End Sub

Sub TestLanguageAndLog
    On Error Resume Next
    Equal "", parts.GetInterfaceLanguage(), "no language is installed"
    Write "locale\English\SCRIPTED_Msgs.xml", "<Messages><MsgID>Bolt</MsgID><T>A bolt</T></Messages>"
    parts.SetTRNVPaths folder & "catalogs\", folder & "data\", folder & "gui\", folder & "custom\"
    Equal "English", parts.GetInterfaceLanguage(), "the short name of the language"
    Equal "A bolt", parts.GetLocalizedString("SCRIPTED", "Bolt"), "a message"
    Equal "Nut", parts.GetLocalizedString("SCRIPTED", "Nut"), "a missing message"

    parts.WriteDebugString "lost"
    Equal CLng(0), parts.DebugSessionStatus, "no session"
    parts.DebugSessionStatusAndLogFile = folder & "log"
    Equal CLng(1), parts.DebugSessionStatus, "a session"
    parts.WriteDebugString "kept"
    parts.DebugSessionStatus = 0
    Equal CLng(0), parts.DebugSessionStatus, "the session is over"
    Worked "log"
    Equal CLng(22), CLng(files.GetFile(folder & "log").Size), "a stamp and the text"
    parts.DebugSessionStatus = 7
    Equal CLng(1), parts.DebugSessionStatus, "any number but 0 is 1"
    parts.DebugSessionStatusAndLogFile = ""
    Equal CLng(0), parts.DebugSessionStatus, "an empty name ends the session"
    Worked "the status alone"
End Sub

Sub TestNotOffered
    On Error Resume Next
    Dim result
    result = parts.NewComponent(0)
    Raised NotImplemented, "NewComponent"
    result = parts.MessageBox("text", "title", 0)
    Raised NotImplemented, "MessageBox"
    result = parts.MessageBoxHTML("text", "title", 0, True, 0, 0)
    Raised NotImplemented, "MessageBoxHTML"
    Set result = parts.ShowHTMLModelessDialog("title", "page.htm", 0, 0, 100, 100, Empty)
    Raised NotImplemented, "ShowHTMLModelessDialog"
    result = parts.ShowHTMLModalDialog("title", "page.htm", 0, 0, 100, 100, Empty)
    Raised NotImplemented, "ShowHTMLModalDialog"
    parts.DeleteClosedModelessIEDlgs
    Raised NotImplemented, "DeleteClosedModelessIEDlgs"
End Sub
